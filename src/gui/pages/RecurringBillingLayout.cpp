// The "Recurring Billing" page: the period, the day of billing and the date UDFs side by side
// at the top, the price list with its editors beside the invoice line's codes, and "Hide Tab"
// at the foot.
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>
#include <QVBoxLayout>

#include "gui/MainWindow.h"
#include "gui/pages/PageLayout.h"

namespace tolmen {

void BuildRecurringBillingPage(MainWindow& window, QWidget* page) {
  MainForm& form = window.Model().frmMain;
  LayoutKit kit;

  QGroupBox* period = kit.Group(form.fraBillPeriod);
  auto* periods = new QVBoxLayout(period);
  for (int index : form.optBillPeriod.Indexes())
    periods->addWidget(kit.Make<QRadioButton>(form.optBillPeriod(index)));
  periods->addStretch();

  QGroupBox* billOn = kit.Group(form.fraBillOn);
  auto* days = new QVBoxLayout(billOn);
  for (int index : form.optBillOn.Indexes()) {
    auto* choice = kit.Make<QRadioButton>(form.optBillOn(index));
    if (index != 3) {
      days->addWidget(choice);
      continue;
    }
    // The specific day's box and its two buttons stand beside the last choice.
    auto* day = new QHBoxLayout;
    day->addWidget(choice);
    day->addWidget(Narrow(kit.Make<QLineEdit>(form.txtBillOn), 2));
    for (int step : form.updBillOn.Indexes())
      day->addWidget(kit.Make<QToolButton>(form.updBillOn(step)));
    day->addStretch();
    days->addLayout(day);
  }
  days->addStretch();

  auto* dates = new QGroupBox;
  auto* dateGrid = new QGridLayout(dates);
  AddField(dateGrid, 0, kit.Label(form.lblDateJoined), kit.Make<QComboBox>(form.cboDateJoined));
  AddField(dateGrid, 1, kit.Label(form.lblDateBilled), kit.Make<QComboBox>(form.cboDateBilled));
  dateGrid->setColumnStretch(1, 1);
  dateGrid->setRowStretch(2, 1);

  auto* prices = new QGroupBox;
  auto* priceGrid = new QGridLayout(prices);
  priceGrid->addWidget(kit.Label(form.lblPriceList), 0, 0);
  priceGrid->addWidget(kit.Make<QListWidget>(form.lstPrices), 1, 0);
  priceGrid->addLayout(
      Row({kit.Make<QPushButton>(form.cmdEditPrice), kit.Make<QPushButton>(form.cmdEditPeriod)}), 2,
      0);

  auto* codes = new QGroupBox;
  auto* codeGrid = new QGridLayout(codes);
  AddField(codeGrid, 0, kit.Label(form.lblGLcode), Narrow(kit.Make<QLineEdit>(form.txtGLcode), 10));
  AddField(codeGrid, 1, kit.Label(form.lblVATcode),
           Narrow(kit.Make<QLineEdit>(form.txtVATcode), 10));
  codeGrid->addWidget(Narrow(kit.Make<QLineEdit>(form.txtVatFrac), 6), 1, 2);
  AddField(codeGrid, 2, kit.Label(form.lblCOSTcode),
           Narrow(kit.Make<QLineEdit>(form.txtCOSTcode), 10));
  codeGrid->addWidget(kit.Make<QCheckBox>(form.chkInvoice), 3, 0, 1, 4);
  codeGrid->setColumnStretch(3, 1);
  codeGrid->setRowStretch(4, 1);

  auto* layout = new QGridLayout(page);
  auto* top = new QHBoxLayout;
  top->addWidget(period);
  top->addWidget(billOn);
  top->addWidget(dates, 1);
  layout->addLayout(top, 0, 0, 1, 2);
  layout->addWidget(prices, 1, 0);
  layout->addWidget(codes, 1, 1);
  layout->addLayout(Row({kit.Make<QPushButton>(form.cmdHideBillR)}, Qt::AlignRight), 2, 0, 1, 2);
  layout->setRowStretch(1, 1);
  layout->setColumnStretch(0, 3);
  layout->setColumnStretch(1, 2);
  kit.ChainTabs();
}

}  // namespace tolmen
