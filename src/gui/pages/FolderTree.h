// The Pastel folder as a tree of folders a person can click through, bound to the Open page's
// Drive1 (the tree's root) and Dir1 (the folder shown current, with its trailing '/').
//
// Picking a folder with the mouse or the keys sets Dir1's text to it, which runs Dir1's change
// handler as picking a folder in the classic folder list did. After every refresh of the window
// the tree follows the two boxes: a new root, or a folder typed or opened from a template, is
// shown and made current without reaching the model again.
#pragma once

#include <QTreeView>
#include <string>

#include "gui/FormBinding.h"
#include "screen/Controls.h"

class QFileSystemModel;

namespace tolmen {

class FolderTree : public QTreeView {
  Q_OBJECT

 public:
  // `drive`, `dir` and whatever `run` reaches must outlive the tree.
  FolderTree(TextBox& drive, TextBox& dir, FormBinding::Runner run, QWidget* parent = nullptr);

  // Shows Drive1's folder as the root and Dir1's folder as the current one, when either changed.
  void Follow();
  // Opens the desktop's folder dialog, titled `title`, at Dir1's folder; a folder chosen there
  // becomes Dir1.
  void Browse(const QString& title);

 private:
  // A folder the user picked, as the file system names it.
  void Picked(const QString& folder);

  TextBox& drive_;
  TextBox& dir_;
  FormBinding::Runner run_;
  QFileSystemModel* files_;
  std::string shownDrive_;
  std::string shownDir_;
  bool rooted_ = false;  // the root was shown once
  bool following_ = false;
};

}  // namespace tolmen
