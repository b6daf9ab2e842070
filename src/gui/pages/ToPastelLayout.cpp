// The "To Pastel" page: the category and the clients to import side by side at the top, the two
// name choices across, then the addresses beside the account number and the mismatch choice.
// A box of the page without a label of its own stands beside the choice it belongs to, and
// shows its tip as its placeholder.
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QRadioButton>
#include <QVBoxLayout>

#include "gui/MainWindow.h"
#include "gui/QtText.h"
#include "gui/pages/PageLayout.h"

namespace tolmen {

void BuildToPastelPage(MainWindow& window, QWidget* page) {
  MainForm& form = window.Model().frmMain;
  LayoutKit kit;

  QGroupBox* category = kit.Group(form.fraCategory);
  auto* categoryGrid = new QGridLayout(category);
  categoryGrid->addWidget(kit.Make<QRadioButton>(form.optCategory(0)), 0, 0);
  categoryGrid->addWidget(kit.Make<QComboBox>(form.cboCategories), 0, 1, 1, 2);
  categoryGrid->addWidget(kit.Make<QRadioButton>(form.optCategory(1)), 1, 0);
  for (int index : form.txtCategory.Indexes()) {
    auto* box = kit.Make<QLineEdit>(form.txtCategory(index));
    box->setPlaceholderText(ToQt(form.txtCategory(index).ToolTipText()));
    categoryGrid->addWidget(index == 0 ? box : Narrow(box, 6), 1, 1 + index);
  }
  categoryGrid->addWidget(kit.Make<QRadioButton>(form.optCategory(2)), 2, 0);
  categoryGrid->addWidget(kit.Make<QComboBox>(form.cboCatgrUDF), 2, 1, 1, 2);
  categoryGrid->setColumnStretch(1, 1);
  categoryGrid->setRowStretch(3, 1);

  QGroupBox* import = kit.Group(form.fraImport);
  auto* importGrid = new QGridLayout(import);
  for (int index : form.optImport.Indexes())
    importGrid->addWidget(kit.Make<QRadioButton>(form.optImport(index)), index / 2, index % 2);
  auto* criteria = new QGridLayout;
  AddField(criteria, 0, kit.Label(form.lblUserFields), kit.Make<QComboBox>(form.cboUserFields));
  AddField(criteria, 1, kit.Label(form.lblUserFldVal), kit.Make<QLineEdit>(form.txtUserFldVal));
  criteria->setColumnStretch(1, 1);
  importGrid->addLayout(criteria, 2, 0, 1, 2);
  importGrid->setRowStretch(3, 1);

  auto* names = new QVBoxLayout;
  for (int index : {0, 2}) names->addWidget(kit.Make<QCheckBox>(form.chkToPastel(index)));

  auto* addresses = new QGroupBox;
  auto* addressGrid = new QGridLayout(addresses);
  addressGrid->addWidget(kit.Make<QCheckBox>(form.chkToPastel(3)), 0, 0, 1, 2);
  addressGrid->addWidget(kit.Make<QCheckBox>(form.chkToPastel(4)), 1, 0, 1, 2);
  AddField(addressGrid, 2, kit.Label(form.lblPostal), kit.Make<QComboBox>(form.cboPostal));
  AddField(addressGrid, 3, kit.Label(form.lblDelivery), kit.Make<QComboBox>(form.cboDelivery));
  addressGrid->setColumnStretch(1, 1);
  addressGrid->setRowStretch(4, 1);

  auto* account = new QGroupBox;
  auto* accountGrid = new QGridLayout(account);
  AddField(accountGrid, 0, kit.Label(form.lblAcctCode), kit.Make<QComboBox>(form.cboAcctCode));
  auto* sizes = new QHBoxLayout;
  for (auto [label, box] :
       {std::pair{&form.lblPrefix, &form.txtPrefix}, std::pair{&form.lblSuffix, &form.txtSuffix}}) {
    QLabel* caption = kit.Label(*label);
    auto* field = Narrow(kit.Make<QLineEdit>(*box), 2);
    caption->setBuddy(field);
    sizes->addWidget(caption);
    sizes->addWidget(field);
    sizes->addSpacing(12);
  }
  sizes->addStretch();
  accountGrid->addLayout(sizes, 1, 0, 1, 2);
  AddField(accountGrid, 2, kit.Label(form.lblVATnumber), kit.Make<QComboBox>(form.cboVATnumber));
  accountGrid->setColumnStretch(1, 1);

  QGroupBox* mismatch = kit.Group(form.fraMismatch);
  auto* mismatchRow = new QHBoxLayout(mismatch);
  for (int index : form.optMismatch.Indexes())
    mismatchRow->addWidget(kit.Make<QRadioButton>(form.optMismatch(index)));
  mismatchRow->addStretch();

  auto* right = new QVBoxLayout;
  right->addWidget(account);
  right->addWidget(mismatch);

  auto* key = kit.Label(form.lblUDFkey);
  key->setWordWrap(true);

  auto* layout = new QGridLayout(page);
  layout->addWidget(category, 0, 0);
  layout->addWidget(import, 0, 1);
  layout->addLayout(names, 1, 0, 1, 2);
  layout->addWidget(addresses, 2, 0);
  layout->addWidget(Panel(right), 2, 1);
  layout->addWidget(key, 3, 0, 1, 2);
  layout->setColumnStretch(0, 1);
  layout->setColumnStretch(1, 1);
  layout->setRowStretch(4, 1);
  kit.ChainTabs();
}

}  // namespace tolmen
