// The "To Maximizer" page: the Pastel fields and the Maximizer UDFs side by side, the link
// buttons under them, and the list of links across the page.
#include <QGridLayout>
#include <QListWidget>
#include <QPushButton>

#include "gui/MainWindow.h"
#include "gui/pages/PageLayout.h"

namespace tolmen {

void BuildToMaximizerPage(MainWindow& window, QWidget* page) {
  MainForm& form = window.Model().frmMain;
  LayoutKit kit;
  auto* layout = new QGridLayout(page);
  layout->addWidget(kit.Label(form.lbl2MaxPastel), 0, 0);
  layout->addWidget(kit.Label(form.lbl2MaxUDFs), 0, 1);
  layout->addWidget(kit.Make<QListWidget>(form.lst2MaxPastel), 1, 0);
  layout->addWidget(kit.Make<QListWidget>(form.lst2MaxUDFs), 1, 1);
  layout->addLayout(
      Row({kit.Make<QPushButton>(form.cmd2MaxAdd), kit.Make<QPushButton>(form.cmd2MaxReplace),
           kit.Make<QPushButton>(form.cmd2MaxEdit), kit.Make<QPushButton>(form.cmd2MaxDelete)}),
      2, 0, 1, 2);
  layout->addWidget(kit.Label(form.lbl2MaxLinked), 3, 0, 1, 2);
  layout->addWidget(kit.Make<QListWidget>(form.lst2MaxLinked), 4, 0, 1, 2);
  auto* aging = kit.Label(form.lblAging);
  aging->setWordWrap(true);
  layout->addWidget(aging, 5, 0, 1, 2);
  layout->setRowStretch(1, 3);
  layout->setRowStretch(4, 2);
  kit.ChainTabs();
}

}  // namespace tolmen
