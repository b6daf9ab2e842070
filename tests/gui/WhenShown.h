// Answers a dialog the next call shows modally, found by a timer among the top-level widgets.
#pragma once

#include <QApplication>
#include <QTimer>
#include <QWidget>
#include <functional>

namespace tolmen {

// Runs `answer` on the first visible top-level widget of type W once it shows.
template <typename W>
void WhenShown(std::function<void(W*)> answer) {
  auto* poll = new QTimer;
  QObject::connect(poll, &QTimer::timeout, [poll, answer] {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      auto* found = qobject_cast<W*>(widget);
      if (found && found->isVisible()) {
        poll->stop();
        poll->deleteLater();
        answer(found);
        if (found->isVisible()) found->close();  // an answer that did not take: fail, never hang
        return;
      }
    }
  });
  poll->start(10);
}

}  // namespace tolmen
