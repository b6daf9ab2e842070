#include "gui/HelpWindow.h"

#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QStyle>
#include <QTextBrowser>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>

namespace tolmen {

namespace {

QToolButton* NavigationButton(QWidget* parent, const QString& name, const QString& text,
                              QStyle::StandardPixmap icon) {
  auto* button = new QToolButton(parent);
  button->setObjectName(name);
  button->setText(text);
  button->setIcon(parent->style()->standardIcon(icon));
  button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  return button;
}

}  // namespace

HelpWindow::HelpWindow(QWidget* parent) : QWidget(parent, Qt::Window) {
  setObjectName("helpWindow");
  setWindowTitle("Tolmen Help");
  auto* layout = new QVBoxLayout(this);
  auto* bar = new QHBoxLayout;
  back_ = NavigationButton(this, "helpBack", "&Back", QStyle::SP_ArrowBack);
  forward_ = NavigationButton(this, "helpForward", "&Forward", QStyle::SP_ArrowForward);
  contents_ = NavigationButton(this, "helpContents", "&Contents", QStyle::SP_DirHomeIcon);
  bar->addWidget(back_);
  bar->addWidget(forward_);
  bar->addWidget(contents_);
  bar->addStretch();
  layout->addLayout(bar);

  browser_ = new QTextBrowser(this);
  browser_->setObjectName("helpBrowser");
  // Links between the pages stay inside; a link out of the help (a web address) goes to the
  // desktop's browser.
  browser_->setOpenLinks(true);
  browser_->setOpenExternalLinks(true);
  layout->addWidget(browser_, 1);

  back_->setEnabled(false);
  forward_->setEnabled(false);
  connect(back_, &QToolButton::clicked, browser_, &QTextBrowser::backward);
  connect(forward_, &QToolButton::clicked, browser_, &QTextBrowser::forward);
  connect(contents_, &QToolButton::clicked, browser_, [this] {
    const QFileInfo shown(CurrentPage());
    if (!shown.fileName().isEmpty())
      browser_->setSource(QUrl::fromLocalFile(shown.dir().filePath("index.htm")));
  });
  connect(browser_, &QTextBrowser::backwardAvailable, back_, &QToolButton::setEnabled);
  connect(browser_, &QTextBrowser::forwardAvailable, forward_, &QToolButton::setEnabled);
  connect(browser_, &QTextBrowser::sourceChanged, this, [this] {
    const QString title = browser_->documentTitle();
    setWindowTitle(title.isEmpty() ? "Tolmen Help" : title + " - Tolmen Help");
  });
  resize(720, 560);
}

bool HelpWindow::ShowPage(const QString& path) {
  const QFileInfo file(path);
  if (!file.isFile() || !file.isReadable()) return false;
  browser_->setSource(QUrl::fromLocalFile(file.absoluteFilePath()));
  show();
  raise();
  activateWindow();
  return true;
}

QString HelpWindow::CurrentPage() const {
  return browser_->source().toLocalFile();
}

}  // namespace tolmen
