// The hand-made layouts of frmMain's six pages and of the frmOptions and frmSetup dialogs, one
// file each, and the kit they are built with.
//
// Every widget is named after its control (FormBinding finds it by that name). A frame's caption
// ("fra...") is the title of a QGroupBox that holds the frame's controls. The kit keeps the
// focusable widgets in the order a layout places them and chains them so, so that Tab follows
// the page's visual order: row by row, a group box's controls before the next box's.
#pragma once

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QWidget>
#include <type_traits>
#include <vector>

#include "gui/FormBinding.h"
#include "screen/Controls.h"

class QBoxLayout;
class QLineEdit;
class QGridLayout;
class QDialog;

namespace tolmen {

class MainWindow;
class OptionsForm;
class SetupForm;

class LayoutKit {
 public:
  // A widget for `control`, named after it; a focusable one joins the Tab chain.
  template <typename W>
  W* Make(const Control& control) {
    auto* widget = new W;
    widget->setObjectName(FormBinding::WidgetName(control));
    // A list to pick from is wide enough for its entries' usual length before they are filled.
    if constexpr (std::is_same_v<W, QComboBox>) widget->setMinimumContentsLength(20);
    Chain(widget);
    return widget;
  }
  // A label (a caption beside or above the field it names).
  QLabel* Label(const Control& control) { return Make<QLabel>(control); }
  // A group box headed by the frame `heading`'s caption.
  QGroupBox* Group(const Control& heading) { return Make<QGroupBox>(heading); }
  // A widget of the layout's own, not a control's (the folder tree, its Browse button), chained
  // for Tab where it stands.
  void Chain(QWidget* widget);
  // Sets the Tab order of the widgets chained so far, in their order.
  void ChainTabs() const;

 private:
  std::vector<QWidget*> chain_;
};

// A row of widgets side by side, at their natural widths, pushed to the left or to the right.
QBoxLayout* Row(std::initializer_list<QWidget*> widgets, Qt::Alignment side = Qt::AlignLeft);
// A label beside its field in `row` of `grid`, from `column` (two columns); the label is the
// field's buddy.
void AddField(QGridLayout* grid, int row, QWidget* label, QWidget* field, int column = 0);
// `box` no wider than `characters` digits need.
QLineEdit* Narrow(QLineEdit* box, int characters);
// A plain panel to hold one column of a page; its layout has no margins of its own.
QWidget* Panel(QBoxLayout* layout);

// The pages of frmMain, each into `page` (which has no layout yet). The Open page's folder tree
// follows the window's refreshes and hands its clicks to the window's user actions.
void BuildOpenPage(MainWindow& window, QWidget* page);
void BuildToPastelPage(MainWindow& window, QWidget* page);
void BuildToMaximizerPage(MainWindow& window, QWidget* page);
void BuildRecurringBillingPage(MainWindow& window, QWidget* page);
void BuildCasualBillingPage(MainWindow& window, QWidget* page);
void BuildTransferPage(MainWindow& window, QWidget* page);

// The two dialogs' controls into `dialog`; OK is the default button, Escape is the dialog's own.
void BuildOptionsLayout(OptionsForm& form, QDialog* dialog);
void BuildSetupLayout(SetupForm& form, QDialog* dialog);

}  // namespace tolmen
