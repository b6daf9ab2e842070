#include "gui/pages/FolderTree.h"

#include <QFileDialog>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QMessageBox>

#include "gui/QtText.h"
#include "runtime/RuntimeError.h"
#include "runtime/SystemPath.h"

namespace tolmen {

namespace {

// Dir1 holds a folder with a trailing '/'; the file system's name has none but for the root.
QString FolderOf(const std::string& text) {
  QString folder = QString::fromStdString(SystemPath(text));
  while (folder.size() > 1 && folder.endsWith('/')) folder.chop(1);
  return folder;
}

}  // namespace

FolderTree::FolderTree(TextBox& drive, TextBox& dir, FormBinding::Runner run, QWidget* parent)
    : QTreeView(parent),
      drive_(drive),
      dir_(dir),
      run_(std::move(run)),
      files_(new QFileSystemModel(this)) {
  setObjectName("treeDir1");
  files_->setFilter(QDir::AllDirs | QDir::NoDotAndDotDot);
  setModel(files_);
  for (int column = 1; column < files_->columnCount(); ++column) hideColumn(column);
  setHeaderHidden(true);
  setUniformRowHeights(true);
  connect(selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this](const QModelIndex& current) {
            if (!following_ && current.isValid()) Picked(files_->filePath(current));
          });
  // The folders load in the background: bring the current one into view once they are there.
  connect(files_, &QFileSystemModel::directoryLoaded, this,
          [this] { scrollTo(currentIndex(), QAbstractItemView::PositionAtCenter); });
  Follow();
}

void FolderTree::Follow() {
  if (rooted_ && drive_.Text() == shownDrive_ && dir_.Text() == shownDir_) return;
  following_ = true;
  if (!rooted_ || drive_.Text() != shownDrive_) {
    rooted_ = true;
    shownDrive_ = drive_.Text();
    QString root = FolderOf(shownDrive_.empty() ? "/" : shownDrive_);
    files_->setRootPath(root);
    setRootIndex(files_->index(root));
  }
  shownDir_ = dir_.Text();
  QModelIndex folder = files_->index(FolderOf(shownDir_));
  if (folder.isValid()) {
    setCurrentIndex(folder);
    scrollTo(folder, QAbstractItemView::PositionAtCenter);
  } else {
    selectionModel()->clear();
  }
  following_ = false;
}

void FolderTree::Browse(const QString& title) {
  QString chosen = QFileDialog::getExistingDirectory(window(), title, FolderOf(dir_.Text()));
  if (!chosen.isEmpty()) Picked(chosen);
}

void FolderTree::Picked(const QString& folder) {
  std::string text;
  try {
    text = PathFromSystem(folder.toStdString());
  } catch (const RuntimeError& refused) {  // a folder Windows-1252 cannot name
    QMessageBox::warning(window(), window()->windowTitle(), ToQt(refused.Description()));
    return;
  }
  if (text.empty() || text.back() != '/') text += '/';
  run_([this, text] { dir_.SetText(text); });
}

}  // namespace tolmen
