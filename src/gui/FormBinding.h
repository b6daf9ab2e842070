// Binds one form of the screen model to its Qt widgets.
//
// Every widget carries its control's name as objectName; a member of a control array carries
// the name, an underscore and the index ("mnuFile_40", "optMethod_1", "lblProgress_2"). Menu
// items are QActions, menus and submenus QMenus, under the same naming.
//
// Model to widgets: Refresh() copies each control whose revision moved since the last copy
// (captions, enabled, visible, checked, texts, list items and index, tab pages). The front-end
// calls it after each handler and each yield.
// Widgets to model: a user's click, tick, typing, pick or tab change is handed to the `run`
// callback as a function that calls the model (which runs the handlers); the callback runs it
// and refreshes. Changes made by Refresh itself never reach the model.
//
// Kinds and widgets: Button - QAbstractButton; CheckBox - QCheckBox; OptionButton - QRadioButton
// (exclusivity is the model's); TextBox - QLineEdit or QPlainTextEdit; ListBox - QListWidget;
// ComboBox - QComboBox; Label - QLabel, or QGroupBox for a frame's caption (its title, and its
// enabled and visible state hold for the controls in it); Image, Animation - QLabel; ProgressBar -
// QProgressBar; TabControl - QTabWidget; MenuItem - QAction or QMenu.
#pragma once

#include <QObject>
#include <QStringList>
#include <functional>
#include <vector>

#include "screen/Form.h"

class QWidget;

namespace tolmen {

class FormBinding : public QObject {
  Q_OBJECT

 public:
  // `root` holds the widgets and menus of the form; it must outlive the binding, as must `form`.
  using Runner = std::function<void(const std::function<void()>& change)>;
  FormBinding(Form& form, QWidget& root, Runner run, QObject* parent = nullptr);

  // The objectName of a control's widget.
  static QString WidgetName(const Control& control);

  // Copies the changed controls to their widgets; `all` copies every control. A control code
  // asked for the focus since the last refresh gives its widget the focus.
  void Refresh(bool all = false);
  // Controls that found no widget of the right kind: a page's control whose widget is missing.
  QStringList Unbound() const { return unbound_; }
  Form& BoundForm() const { return form_; }
  // The widget, action or menu bound to `control`; nullptr when it has none here.
  QObject* WidgetOf(const Control& control) const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Entry {
    Control* control = nullptr;
    QObject* object = nullptr;
    unsigned long seen = 0;
    unsigned long seenCaret = 0;
    bool copied = false;
  };

  void BindAll();
  void Bind(Control& control);
  void Connect(Entry& entry);
  void Copy(Entry& entry);
  // Hands a user's change to the runner; nothing while Refresh copies.
  void UserDid(const std::function<void()>& change);
  Entry* EntryOf(QObject* object);

  Form& form_;
  QWidget& root_;
  Runner run_;
  std::vector<Entry> entries_;
  size_t boundCount_ = 0;
  QStringList unbound_;
  bool refreshing_ = false;
  unsigned long focusSeen_ = 0;
};

}  // namespace tolmen
