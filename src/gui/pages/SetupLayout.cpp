// frmSetup: the three choices, each beside its label, and OK and Cancel at the foot.
#include <QComboBox>
#include <QDialog>
#include <QGridLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "gui/pages/PageLayout.h"
#include "screen/SetupForm.h"

namespace tolmen {

void BuildSetupLayout(SetupForm& form, QDialog* dialog) {
  LayoutKit kit;
  auto* layout = new QVBoxLayout(dialog);
  auto* fields = new QGridLayout;
  int row = 0;
  for (auto [label, combo] : {std::pair{&form.lblDocument, &form.cboDocument},
                              std::pair{&form.lblStatement, &form.cboStatement},
                              std::pair{&form.lblMessage, &form.cboMessage}}) {
    auto* box = kit.Make<QComboBox>(*combo);
    box->setMinimumContentsLength(30);  // "Do not Print and Email Document"
    AddField(fields, row++, kit.Label(*label), box);
  }
  fields->setColumnStretch(1, 1);
  layout->addLayout(fields);
  layout->addStretch();
  layout->addLayout(Row({kit.Make<QPushButton>(form.cmdOk), kit.Make<QPushButton>(form.cmdCancel)},
                        Qt::AlignRight));
  kit.ChainTabs();
}

}  // namespace tolmen
