#include "gui/LogViewer.h"

#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QScrollBar>

#include "gui/QtText.h"

namespace tolmen {

LogViewer::LogViewer(QWidget* parent) : QPlainTextEdit(parent) {
  setWindowFlag(Qt::Window);
  setObjectName("logViewer");
  setReadOnly(true);
  setLineWrapMode(QPlainTextEdit::NoWrap);
  setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  setAttribute(Qt::WA_DeleteOnClose);
  resize(760, 520);
}

bool LogViewer::Load(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return false;
  const QByteArray bytes = file.readAll();
  setPlainText(ToQt(std::string(bytes.constData(), static_cast<size_t>(bytes.size()))));
  setWindowTitle(QFileInfo(path).fileName() + " - Tolmen");
  verticalScrollBar()->setValue(verticalScrollBar()->maximum());
  return true;
}

bool OpenLog(const QString& path, const std::function<bool(const QString&)>& openDesktop,
             const std::function<bool(const QString&)>& showViewer) {
  if (!QFileInfo(path).isFile()) return false;
  if (openDesktop && openDesktop(path)) return true;
  return showViewer && showViewer(path);
}

}  // namespace tolmen
