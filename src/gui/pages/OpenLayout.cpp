// The "Open" page: the Pastel set of accounts on the left (its folder as a tree, with a box to
// type it and a button for the desktop's folder dialog), the Maximizer database and the choice
// of clients on the right, the "To Maximizer" check box across the foot.
#include <QCheckBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "gui/MainWindow.h"
#include "gui/QtText.h"
#include "gui/pages/FolderTree.h"
#include "gui/pages/PageLayout.h"

namespace tolmen {

void BuildOpenPage(MainWindow& window, QWidget* page) {
  MainForm& form = window.Model().frmMain;
  LayoutKit kit;

  QGroupBox* pastel = kit.Group(form.fraPastel);
  auto* pastelGrid = new QGridLayout(pastel);
  auto* drive = kit.Make<QLineEdit>(form.Drive1);
  drive->setMaximumWidth(drive->fontMetrics().horizontalAdvance('M') * 8);
  pastelGrid->addWidget(kit.Label(form.lblDrive1), 0, 0);
  pastelGrid->addWidget(drive, 0, 1, Qt::AlignLeft);
  auto* folder = kit.Make<QLineEdit>(form.Dir1);
  auto* tree = new FolderTree(
      form.Drive1, form.Dir1,
      [&window](const std::function<void()>& change) { window.RunUserAction(change); });
  auto* browse = new QPushButton(QString::fromUtf8("Browse\u2026"));
  browse->setObjectName("cmdBrowseDir1");
  kit.Chain(browse);
  kit.Chain(tree);
  AddField(pastelGrid, 1, kit.Label(form.lblDir1), folder);
  pastelGrid->addWidget(browse, 1, 2);
  pastelGrid->addWidget(tree, 2, 1, 1, 2);
  pastelGrid->setRowStretch(2, 1);
  AddField(pastelGrid, 3, kit.Label(form.lblPassword), kit.Make<QLineEdit>(form.txtPassword));
  QObject::connect(browse, &QPushButton::clicked, tree,
                   [tree, &form] { tree->Browse(LabelText(form.fraPastel.Caption())); });
  QObject::connect(&window, &MainWindow::refreshed, tree, &FolderTree::Follow);

  QGroupBox* maximizer = kit.Group(form.fraMaximizer);
  auto* database = new QGridLayout(maximizer);
  AddField(database, 0, kit.Label(form.lblDatabaseName), kit.Make<QLineEdit>(form.txtDatabaseName));
  AddField(database, 1, kit.Label(form.lblDatabasePath), kit.Make<QLineEdit>(form.txtDatabasePath));
  database->addLayout(Row({kit.Make<QPushButton>(form.cmdOpenDatabse)}, Qt::AlignRight), 2, 0, 1,
                      2);

  QGroupBox* clients = kit.Group(form.fraListClients);
  auto* choices = new QVBoxLayout(clients);
  for (int index : form.optListClients.Indexes())
    choices->addWidget(kit.Make<QRadioButton>(form.optListClients(index)));

  auto* right = new QVBoxLayout;
  right->addWidget(maximizer);
  right->addWidget(clients);
  right->addStretch();

  auto* layout = new QGridLayout(page);
  layout->addWidget(pastel, 0, 0);
  layout->addWidget(Panel(right), 0, 1);
  layout->addWidget(kit.Make<QCheckBox>(form.chkShowToMaxTab), 1, 0, 1, 2);
  layout->setColumnStretch(0, 3);
  layout->setColumnStretch(1, 2);
  layout->setRowStretch(0, 1);
  kit.ChainTabs();
}

}  // namespace tolmen
