// The "Casual Billing" page: the four steps of a rule in columns, the rule buttons, the billing
// list, the two invoice messages, and "Hide Tab" at the foot.
#include <QComboBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "gui/MainWindow.h"
#include "gui/pages/PageLayout.h"

namespace tolmen {

namespace {

// A label above the field it names, in `column`.
void AddStep(QVBoxLayout* column, QLabel* label, QWidget* field, int stretch) {
  label->setBuddy(field);
  column->addWidget(label);
  column->addWidget(field, stretch);
}

}  // namespace

void BuildCasualBillingPage(MainWindow& window, QWidget* page) {
  MainForm& form = window.Model().frmMain;
  LayoutKit kit;

  auto* udfs = new QVBoxLayout;
  AddStep(udfs, kit.Label(form.lblBillCUDFs), kit.Make<QListWidget>(form.lstBillCUDFs), 1);
  auto* trigger = new QVBoxLayout;
  AddStep(trigger, kit.Label(form.lblBillCCode), kit.Make<QLineEdit>(form.txtBillCCode), 0);
  trigger->addSpacing(6);
  AddStep(trigger, kit.Label(form.lblBillType), kit.Make<QListWidget>(form.lstBillType), 1);
  auto* inventory = new QVBoxLayout;
  AddStep(inventory, kit.Label(form.lblPasInventory), kit.Make<QListWidget>(form.lstPasInventory),
          1);
  auto* steps = new QHBoxLayout;
  for (QVBoxLayout* column : {udfs, trigger, inventory}) steps->addWidget(Panel(column), 1);

  auto* layout = new QVBoxLayout(page);
  layout->addLayout(steps, 3);
  layout->addLayout(
      Row({kit.Make<QPushButton>(form.cmdBillCAdd), kit.Make<QPushButton>(form.cmdBillCReplace),
           kit.Make<QPushButton>(form.cmdBillCEdit), kit.Make<QPushButton>(form.cmdBillCDelete)}));
  auto* list = kit.Make<QListWidget>(form.lstBillCSet);
  QLabel* listLabel = kit.Label(form.lblBillCSet);
  listLabel->setBuddy(list);
  layout->addWidget(listLabel);
  layout->addWidget(list, 2);
  auto* messages = new QGridLayout;
  for (int index : form.lblMessage.Indexes()) {
    auto* combo = kit.Make<QComboBox>(form.cboMessage(index));
    AddField(messages, index, kit.Label(form.lblMessage(index)), combo);
    messages->addWidget(kit.Make<QLineEdit>(form.txtMessage(index)), index, 2);
  }
  messages->setColumnStretch(1, 1);
  messages->setColumnStretch(2, 2);
  layout->addLayout(messages);
  layout->addLayout(Row({kit.Make<QPushButton>(form.cmdHideBillC)}, Qt::AlignRight));
  kit.ChainTabs();
}

}  // namespace tolmen
