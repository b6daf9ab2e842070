// frmOptions: background mode at the top, the schedule in a box (a daily time, or an interval of
// hours and minutes, each beside its choice), the templates with their two buttons, the
// notification, and OK and Cancel at the foot.
#include <QCheckBox>
#include <QDialog>
#include <QGridLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "gui/pages/PageLayout.h"
#include "screen/OptionsForm.h"

namespace tolmen {

void BuildOptionsLayout(OptionsForm& form, QDialog* dialog) {
  LayoutKit kit;
  auto* layout = new QVBoxLayout(dialog);
  layout->addWidget(kit.Make<QCheckBox>(form.Check1));

  auto* schedule = new QGroupBox;
  auto* grid = new QGridLayout(schedule);
  grid->addWidget(kit.Make<QRadioButton>(form.optMethod(0)), 0, 0);
  auto* time = new QHBoxLayout;
  QLabel* timeLabel = kit.Label(form.lblTime);
  auto* timeBox = Narrow(kit.Make<QLineEdit>(form.txtTime), 5);
  timeLabel->setBuddy(timeBox);
  time->addWidget(timeLabel);
  time->addWidget(timeBox);
  time->addStretch();
  grid->addLayout(time, 0, 1);
  grid->addWidget(kit.Make<QRadioButton>(form.optMethod(1)), 1, 0);
  auto* interval = new QHBoxLayout;
  for (auto [label, box] :
       {std::pair{&form.lblHours, &form.txtHours}, std::pair{&form.lblMins, &form.txtMins}}) {
    QLabel* caption = kit.Label(*label);
    auto* field = Narrow(kit.Make<QLineEdit>(*box), 3);
    caption->setBuddy(field);
    interval->addWidget(caption);
    interval->addWidget(field);
    interval->addSpacing(12);
  }
  interval->addStretch();
  grid->addLayout(interval, 1, 1);
  layout->addWidget(schedule);

  auto* list = kit.Make<QListWidget>(form.lstTemplates);
  QLabel* listLabel = kit.Label(form.lblTemplates);
  listLabel->setBuddy(list);
  layout->addWidget(listLabel);
  layout->addWidget(list, 1);
  layout->addLayout(
      Row({kit.Make<QPushButton>(form.cmdBrowse), kit.Make<QPushButton>(form.cmdRemove)}));
  layout->addWidget(kit.Make<QCheckBox>(form.Check3));
  layout->addLayout(Row({kit.Make<QPushButton>(form.cmdOK), kit.Make<QPushButton>(form.cmdCancel)},
                        Qt::AlignRight));
  kit.ChainTabs();
}

}  // namespace tolmen
