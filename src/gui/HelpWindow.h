// The program's own help window: the HTML help pages in a browser pane with its links, Back,
// Forward and Contents (the index page). One window serves every request; a new page replaces the
// shown one and is added to its history.
#pragma once

#include <QString>
#include <QWidget>

class QTextBrowser;
class QToolButton;

namespace tolmen {

class HelpWindow : public QWidget {
  Q_OBJECT

 public:
  explicit HelpWindow(QWidget* parent = nullptr);

  // Shows the HTML file `path` (absolute) and raises the window; false when it cannot be read.
  bool ShowPage(const QString& path);
  // The file shown, as a local path ("" before the first page).
  QString CurrentPage() const;
  QTextBrowser* Browser() const { return browser_; }

 private:
  QTextBrowser* browser_ = nullptr;
  QToolButton* back_ = nullptr;
  QToolButton* forward_ = nullptr;
  QToolButton* contents_ = nullptr;
};

}  // namespace tolmen
