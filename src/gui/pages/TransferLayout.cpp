// The "Transfer" page: the heading, the instruction line and the import files' choice, then the
// run's progress lines, its bar and the animation under them.
#include <QCheckBox>
#include <QProgressBar>
#include <QVBoxLayout>

#include "gui/MainWindow.h"
#include "gui/pages/PageLayout.h"

namespace tolmen {

void BuildTransferPage(MainWindow& window, QWidget* page) {
  MainForm& form = window.Model().frmMain;
  LayoutKit kit;
  auto* layout = new QVBoxLayout(page);
  QLabel* heading = kit.Label(form.lblHeading);
  QFont font = heading->font();
  font.setBold(true);
  font.setPointSizeF(font.pointSizeF() * 1.4);
  heading->setFont(font);
  layout->addWidget(heading);
  for (int line : form.lblProgress.Indexes()) {
    QLabel* label = kit.Label(form.lblProgress(line));
    label->setWordWrap(true);
    layout->addWidget(label);
    if (line == 0) {
      layout->addWidget(kit.Make<QCheckBox>(form.chkWritePasFile));
      layout->addSpacing(12);
    }
  }
  layout->addWidget(kit.Make<QProgressBar>(form.ProgressBar1));
  QLabel* animation = kit.Make<QLabel>(form.Animation1);
  animation->setAlignment(Qt::AlignCenter);
  layout->addWidget(animation, 1);
  kit.ChainTabs();
}

}  // namespace tolmen
