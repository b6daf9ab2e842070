// The run log shown to its user: the desktop's default program for text when there is one, else a
// read-only viewer of the program's own.
#pragma once

#include <QPlainTextEdit>
#include <QString>
#include <functional>

class QWidget;

namespace tolmen {

// A read-only window over a text file, in a fixed-pitch font, scrolled to its end (a log's newest
// lines are what a person looks for). The text is read once, as Windows-1252.
class LogViewer : public QPlainTextEdit {
  Q_OBJECT

 public:
  explicit LogViewer(QWidget* parent = nullptr);
  // Reads `path` (UTF-8, as the file system names it); false when it cannot be read.
  bool Load(const QString& path);
};

// How the log is opened: `openDesktop` asks the desktop's default program (false when there is
// none); when it fails the file goes to `showViewer`. False only when the file is not there (or is
// no file), so that the caller's "File not found" means what it says.
bool OpenLog(const QString& path, const std::function<bool(const QString&)>& openDesktop,
             const std::function<bool(const QString&)>& showViewer);

}  // namespace tolmen
