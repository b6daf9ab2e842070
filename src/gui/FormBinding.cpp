#include "gui/FormBinding.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QEvent>
#include <QFocusEvent>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QTabWidget>
#include <QTextOption>
#include <algorithm>

#include "gui/QtText.h"
#include "screen/Controls.h"
#include "screen/ListControls.h"
#include "screen/Menu.h"
#include "screen/OptionButton.h"
#include "screen/TabControl.h"

namespace tolmen {

namespace {

// Draws list entries with their tab characters expanded to the list's tab stops, given in
// dialog units: a quarter of the font's average character width.
class TabStopDelegate : public QStyledItemDelegate {
 public:
  explicit TabStopDelegate(QObject* parent) : QStyledItemDelegate(parent) {}
  void SetStops(const std::vector<int>& stops) { stops_ = stops; }

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    QString text = item.text;
    if (!text.contains('\t')) {
      QStyledItemDelegate::paint(painter, option, index);
      return;
    }
    item.text.clear();
    const QWidget* widget = option.widget;
    QStyle* style = widget ? widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &item, painter, widget);
    QTextOption layout;
    double unit = item.fontMetrics.averageCharWidth() / 4.0;
    QList<QTextOption::Tab> tabs;
    for (int stop : stops_) tabs.append(QTextOption::Tab(stop * unit, QTextOption::LeftTab));
    layout.setTabs(tabs);
    layout.setWrapMode(QTextOption::NoWrap);
    QRect area = style->subElementRect(QStyle::SE_ItemViewItemText, &item, widget);
    painter->save();
    painter->setPen(item.palette.color(
        option.state & QStyle::State_Selected ? QPalette::HighlightedText : QPalette::Text));
    painter->drawText(QRectF(area), text, layout);
    painter->restore();
  }

 private:
  std::vector<int> stops_;
};

QString Multiline(const std::string& text) {
  QString out = ToQt(text);
  out.replace("\r\n", "\n");
  return out;
}

std::string FromMultiline(const QString& text) {
  QString out = text;
  out.replace("\n", "\r\n");
  return FromQt(out);
}

template <typename W>
W* As(QObject* object) {
  return qobject_cast<W*>(object);
}

bool SameItems(const QStringList& shown, const std::vector<ListItem>& items) {
  if (shown.size() != static_cast<qsizetype>(items.size())) return false;
  for (size_t i = 0; i < items.size(); ++i)
    if (shown[static_cast<qsizetype>(i)] != ToQt(items[i].text)) return false;
  return true;
}

QStringList Texts(const std::vector<ListItem>& items) {
  QStringList texts;
  for (const ListItem& item : items) texts << ToQt(item.text);
  return texts;
}

// True when `object` lies under `root` without a dialog of its own in between: the main
// window's binding must not take a widget of a dialog that happens to bear the same name.
bool BelongsTo(QObject* object, QWidget* root) {
  for (QObject* up = object->parent(); up; up = up->parent()) {
    if (up == root) return true;
    if (qobject_cast<QDialog*>(up)) return false;
  }
  return false;
}

template <typename W>
W* FindUnder(QWidget& root, const QString& name) {
  for (W* found : root.findChildren<W*>(name))
    if (BelongsTo(found, &root)) return found;
  return nullptr;
}

int ToInt(double value) {
  return static_cast<int>(std::clamp(value, -2147483648.0, 2147483647.0));
}

}  // namespace

FormBinding::FormBinding(Form& form, QWidget& root, Runner run, QObject* parent)
    : QObject(parent), form_(form), root_(root), run_(std::move(run)) {
  BindAll();
}

QString FormBinding::WidgetName(const Control& control) {
  QString name = ToQt(control.Name());
  if (control.Index() >= 0) name += "_" + QString::number(control.Index());
  return name;
}

void FormBinding::BindAll() {
  std::vector<Control*> controls = form_.AllControls();
  for (Control* control : controls) {
    bool known = std::any_of(entries_.begin(), entries_.end(),
                             [control](const Entry& entry) { return entry.control == control; });
    if (!known && !unbound_.contains(WidgetName(*control))) Bind(*control);
  }
  boundCount_ = controls.size();
}

void FormBinding::Bind(Control& control) {
  QString name = WidgetName(control);
  QObject* object = nullptr;
  switch (control.Kind()) {
    case ControlKind::MenuItem:
      object = FindUnder<QMenu>(root_, name);
      if (!object) object = FindUnder<QAction>(root_, name);
      break;
    case ControlKind::Button:
      object = FindUnder<QAbstractButton>(root_, name);
      break;
    case ControlKind::CheckBox:
      object = FindUnder<QCheckBox>(root_, name);
      break;
    case ControlKind::OptionButton:
      object = FindUnder<QRadioButton>(root_, name);
      break;
    case ControlKind::TextBox:
      object = FindUnder<QLineEdit>(root_, name);
      if (!object) object = FindUnder<QPlainTextEdit>(root_, name);
      break;
    case ControlKind::ListBox:
      object = FindUnder<QListWidget>(root_, name);
      break;
    case ControlKind::ComboBox:
      object = FindUnder<QComboBox>(root_, name);
      break;
    case ControlKind::Label:
      // A frame's caption may head a group box instead of standing as a label.
      object = FindUnder<QLabel>(root_, name);
      if (!object) object = FindUnder<QGroupBox>(root_, name);
      break;
    case ControlKind::Image:
    case ControlKind::Animation:
      object = FindUnder<QLabel>(root_, name);
      break;
    case ControlKind::ProgressBar:
      object = FindUnder<QProgressBar>(root_, name);
      break;
    case ControlKind::TabControl:
      object = FindUnder<QTabWidget>(root_, name);
      break;
  }
  if (!object) {
    unbound_ << name;
    return;
  }
  entries_.push_back(Entry{&control, object});
  Connect(entries_.back());
}

void FormBinding::Connect(Entry& entry) {
  Control* control = entry.control;
  QObject* object = entry.object;
  if (auto* menu = As<QMenu>(object)) {
    connect(menu, &QMenu::aboutToShow, this,
            [this, control] { UserDid([control] { control->Click(); }); });
  } else if (auto* action = As<QAction>(object)) {
    connect(action, &QAction::triggered, this,
            [this, control] { UserDid([control] { control->Click(); }); });
  } else if (auto* box = As<QCheckBox>(object)) {
    auto* model = static_cast<CheckBox*>(control);
    connect(box, &QCheckBox::clicked, this,
            [this, model] { UserDid([model] { model->Toggle(); }); });
  } else if (auto* radio = As<QRadioButton>(object)) {
    radio->setAutoExclusive(false);
    auto* model = static_cast<OptionButton*>(control);
    connect(radio, &QRadioButton::clicked, this,
            [this, model] { UserDid([model] { model->SetValue(true); }); });
  } else if (auto* button = As<QAbstractButton>(object)) {
    connect(button, &QAbstractButton::clicked, this,
            [this, control] { UserDid([control] { control->Click(); }); });
  } else if (auto* line = As<QLineEdit>(object)) {
    auto* model = static_cast<TextBox*>(control);
    connect(line, &QLineEdit::textEdited, this, [this, model](const QString& text) {
      UserDid([model, text] { model->SetText(FromQt(text)); });
    });
    line->installEventFilter(this);
  } else if (auto* edit = As<QPlainTextEdit>(object)) {
    auto* model = static_cast<TextBox*>(control);
    connect(edit, &QPlainTextEdit::textChanged, this, [this, model, edit] {
      UserDid([model, edit] { model->SetText(FromMultiline(edit->toPlainText())); });
    });
    edit->installEventFilter(this);
  } else if (auto* list = As<QListWidget>(object)) {
    auto* model = static_cast<ListBox*>(control);
    list->setItemDelegate(new TabStopDelegate(list));
    connect(list, &QListWidget::currentRowChanged, this, [this, model](int row) {
      if (model->MultiSelect() == ListBox::kSingle)
        UserDid([model, row] { model->SetListIndex(row); });
    });
    connect(list, &QListWidget::itemSelectionChanged, this, [this, model, list] {
      if (model->MultiSelect() == ListBox::kSingle) return;
      UserDid([model, list] {
        for (int row = 0; row < list->count() && row < model->ListCount(); ++row)
          model->SetSelected(row, list->item(row)->isSelected());
      });
    });
    connect(list, &QListWidget::itemDoubleClicked, this,
            [this, model] { UserDid([model] { model->DblClick(); }); });
  } else if (auto* combo = As<QComboBox>(object)) {
    auto* model = static_cast<ComboBox*>(control);
    combo->setEditable(model->Editable());
    connect(combo, &QComboBox::activated, this,
            [this, model](int row) { UserDid([model, row] { model->SetListIndex(row); }); });
    if (combo->lineEdit()) {
      connect(combo->lineEdit(), &QLineEdit::textEdited, this, [this, model](const QString& text) {
        UserDid([model, text] { model->SetText(FromQt(text)); });
      });
    }
  } else if (auto* tabs = As<QTabWidget>(object)) {
    auto* model = static_cast<TabControl*>(control);
    connect(tabs, &QTabWidget::currentChanged, this, [this, model](int page) {
      if (page >= 0 && page < model->TabCount()) UserDid([model, page] { model->SetTab(page); });
    });
  } else if (auto* label = As<QLabel>(object)) {
    label->setTextFormat(Qt::PlainText);
    label->installEventFilter(this);
  }
}

QObject* FormBinding::WidgetOf(const Control& control) const {
  for (const Entry& entry : entries_)
    if (entry.control == &control) return entry.object;
  return nullptr;
}

FormBinding::Entry* FormBinding::EntryOf(QObject* object) {
  for (Entry& entry : entries_)
    if (entry.object == object) return &entry;
  return nullptr;
}

bool FormBinding::eventFilter(QObject* watched, QEvent* event) {
  Entry* entry = EntryOf(watched);
  if (!entry || refreshing_) return QObject::eventFilter(watched, event);
  Control* control = entry->control;
  switch (event->type()) {
    case QEvent::MouseButtonRelease:
      if (As<QLabel>(watched) && static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton)
        UserDid([control] { control->Click(); });
      break;
    case QEvent::MouseButtonDblClick:
      if (As<QLabel>(watched)) UserDid([control] { control->DblClick(); });
      break;
    case QEvent::FocusIn:
    case QEvent::FocusOut: {
      // Focus that moves to another window (a message box, a menu) and back is no entering or
      // leaving of the box.
      Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
      if (reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason) break;
      auto* text = dynamic_cast<TextBox*>(control);
      if (!text) break;
      if (event->type() == QEvent::FocusIn)
        UserDid([text] { text->GotFocus(); });
      else
        UserDid([text] { text->LostFocus(); });
      break;
    }
    default:
      break;
  }
  return QObject::eventFilter(watched, event);
}

void FormBinding::UserDid(const std::function<void()>& change) {
  if (refreshing_) return;
  if (run_)
    run_(change);
  else
    change();
}

void FormBinding::Refresh(bool all) {
  if (form_.AllControls().size() != boundCount_) BindAll();
  refreshing_ = true;
  for (Entry& entry : entries_) {
    if (!all && entry.copied && entry.seen == entry.control->Revision()) continue;
    QSignalBlocker block(entry.object);
    Copy(entry);
    entry.seen = entry.control->Revision();
    entry.copied = true;
  }
  const FocusRequest& focus = form_.Focus();
  if (focus.revision != focusSeen_) {
    focusSeen_ = focus.revision;
    for (Entry& entry : entries_)
      if (entry.control == focus.control)
        if (auto* widget = qobject_cast<QWidget*>(entry.object)) widget->setFocus();
  }
  refreshing_ = false;
}

void FormBinding::Copy(Entry& entry) {
  Control& control = *entry.control;
  QObject* object = entry.object;

  if (auto* menu = As<QMenu>(object)) {
    auto& item = static_cast<MenuItem&>(control);
    menu->setTitle(ToQt(item.Caption()));
    menu->menuAction()->setEnabled(item.Enabled());
    menu->menuAction()->setVisible(item.Visible());
    return;
  }
  if (auto* action = As<QAction>(object)) {
    auto& item = static_cast<MenuItem&>(control);
    // A separator is drawn as Qt draws one: its caption "-" is no text of its own.
    action->setSeparator(item.IsSeparator());
    action->setText(item.IsSeparator() ? QString() : ToQt(item.Caption()));
    action->setCheckable(item.Checked());
    action->setChecked(item.Checked());
    action->setEnabled(item.Enabled());
    action->setVisible(item.Visible());
    return;
  }

  auto* widget = As<QWidget>(object);
  if (!widget) return;
  widget->setEnabled(control.Enabled());
  if (!widget->isWindow()) widget->setVisible(control.Visible());
  widget->setToolTip(ToQt(control.ToolTipText()));

  if (auto* box = As<QCheckBox>(object)) {
    auto& model = static_cast<CheckBox&>(control);
    box->setText(ToQt(model.Caption()));
    box->setTristate(model.Value() == 2);
    box->setCheckState(model.Value() == 2   ? Qt::PartiallyChecked
                       : model.Value() == 1 ? Qt::Checked
                                            : Qt::Unchecked);
  } else if (auto* radio = As<QRadioButton>(object)) {
    auto& model = static_cast<OptionButton&>(control);
    radio->setText(ToQt(model.Caption()));
    radio->setChecked(model.Value());
  } else if (auto* button = As<QAbstractButton>(object)) {
    auto& model = static_cast<Button&>(control);
    button->setText(ToQt(model.Caption()));
    if (auto* push = As<QPushButton>(object)) push->setDefault(model.Default());
  } else if (auto* line = As<QLineEdit>(object)) {
    auto& model = static_cast<TextBox&>(control);
    QString text = ToQt(model.Text());
    if (line->text() != text) line->setText(text);
    line->setReadOnly(model.Locked());
    line->setEchoMode(model.PasswordChar().empty() ? QLineEdit::Normal : QLineEdit::Password);
    if (entry.seenCaret != model.SelStartRevision()) {
      line->setCursorPosition(model.SelStart());
      entry.seenCaret = model.SelStartRevision();
    }
  } else if (auto* edit = As<QPlainTextEdit>(object)) {
    auto& model = static_cast<TextBox&>(control);
    QString text = Multiline(model.Text());
    if (edit->toPlainText() != text) edit->setPlainText(text);
    edit->setReadOnly(model.Locked());
  } else if (auto* list = As<QListWidget>(object)) {
    auto& model = static_cast<ListBox&>(control);
    QStringList shown;
    for (int row = 0; row < list->count(); ++row) shown << list->item(row)->text();
    if (!SameItems(shown, model.Items())) {
      list->clear();
      list->addItems(Texts(model.Items()));
    }
    if (auto* delegate = dynamic_cast<TabStopDelegate*>(list->itemDelegate()))
      delegate->SetStops(model.TabStops());
    list->setSelectionMode(
        model.MultiSelect() == ListBox::kSimple     ? QAbstractItemView::MultiSelection
        : model.MultiSelect() == ListBox::kExtended ? QAbstractItemView::ExtendedSelection
                                                    : QAbstractItemView::SingleSelection);
    if (model.MultiSelect() == ListBox::kSingle) {
      list->setCurrentRow(model.ListIndex());
      if (model.ListIndex() < 0) list->clearSelection();
    } else {
      for (int row = 0; row < list->count(); ++row)
        list->item(row)->setSelected(model.Items()[static_cast<size_t>(row)].selected);
      if (model.ListIndex() >= 0)
        list->setCurrentRow(model.ListIndex(), QItemSelectionModel::NoUpdate);
    }
    list->viewport()->update();
  } else if (auto* combo = As<QComboBox>(object)) {
    auto& model = static_cast<ComboBox&>(control);
    QStringList shown;
    for (int row = 0; row < combo->count(); ++row) shown << combo->itemText(row);
    if (!SameItems(shown, model.Items())) {
      combo->clear();
      combo->addItems(Texts(model.Items()));
    }
    combo->setCurrentIndex(model.ListIndex());
    if (model.Editable() && combo->currentText() != ToQt(model.Text()))
      combo->setEditText(ToQt(model.Text()));
  } else if (auto* bar = As<QProgressBar>(object)) {
    auto& model = static_cast<ProgressBar&>(control);
    int low = ToInt(model.Min());
    int high = std::max(ToInt(model.Max()), low + 1);
    bar->setRange(low, high);
    bar->setValue(std::clamp(ToInt(model.Value()), low, high));
  } else if (auto* tabs = As<QTabWidget>(object)) {
    auto& model = static_cast<TabControl&>(control);
    for (int page = 0; page < tabs->count() && page < model.TabCount(); ++page) {
      tabs->setTabText(page, ToQt(model.TabCaption(page)));
      tabs->setTabVisible(page, model.TabVisible(page));
      tabs->setTabEnabled(page, model.TabEnabled(page));
    }
    if (model.Tab() < tabs->count()) tabs->setCurrentIndex(model.Tab());
  } else if (auto* label = As<QLabel>(object)) {
    if (auto* model = dynamic_cast<Label*>(&control)) {
      label->setText(LabelText(model->Caption()));
      QPalette palette;
      QColor fore = ToQColor(model->ForeColor());
      QColor back = ToQColor(model->BackColor());
      if (fore.isValid()) palette.setColor(QPalette::WindowText, fore);
      if (back.isValid()) palette.setColor(QPalette::Window, back);
      label->setAutoFillBackground(back.isValid());
      label->setPalette(palette);
    }
  } else if (auto* group = As<QGroupBox>(object)) {
    group->setTitle(LabelText(static_cast<Label&>(control).Caption()));
  }
}

}  // namespace tolmen
