#include "gui/pages/PageLayout.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QLineEdit>

namespace tolmen {

void LayoutKit::Chain(QWidget* widget) {
  if (widget->focusPolicy() & Qt::TabFocus) chain_.push_back(widget);
}

void LayoutKit::ChainTabs() const {
  for (size_t i = 1; i < chain_.size(); ++i) QWidget::setTabOrder(chain_[i - 1], chain_[i]);
}

QBoxLayout* Row(std::initializer_list<QWidget*> widgets, Qt::Alignment side) {
  auto* row = new QHBoxLayout;
  if (side & Qt::AlignRight) row->addStretch();
  for (QWidget* widget : widgets) row->addWidget(widget);
  if (side & Qt::AlignLeft) row->addStretch();
  return row;
}

void AddField(QGridLayout* grid, int row, QWidget* label, QWidget* field, int column) {
  grid->addWidget(label, row, column);
  grid->addWidget(field, row, column + 1);
  if (auto* caption = qobject_cast<QLabel*>(label)) caption->setBuddy(field);
}

QLineEdit* Narrow(QLineEdit* box, int characters) {
  box->setMaximumWidth(box->fontMetrics().horizontalAdvance('0') * (characters + 2) + 12);
  return box;
}

QWidget* Panel(QBoxLayout* layout) {
  auto* panel = new QWidget;
  layout->setContentsMargins(0, 0, 0, 0);
  panel->setLayout(layout);
  return panel;
}

}  // namespace tolmen
