// The Qt window of frmMain, and the dialogs of frmOptions and frmSetup, bound to the screen model
// (see FormBinding for the naming of widgets and what the binding copies).
//
// The window shows and hides as frmMain does, and so do the dialogs with their forms (a modal
// form's dialog is application-modal). Its close box, and a dialog's close box or Escape key, go
// to the form's RequestClose - for frmMain through the WindowModel, so that the application's
// close hook decides. F1 anywhere runs cmdHelp's click handler.
//
// Page N of the tab control is a QWidget "tabDlgPageN" in a scroll area. BuildPage() lays the
// page out by hand (gui/pages/), a widget for each control registered on the page, named after
// it, before the binding looks for them. A control without a widget is listed by Unbound().
#pragma once

#include <QDialog>
#include <QMainWindow>
#include <QStringList>
#include <memory>
#include <vector>

#include "gui/FormBinding.h"
#include "platform/ui/Ui.h"
#include "screen/ScreenModel.h"

class QLabel;
class QTabWidget;

namespace tolmen {

// A dialog whose close box asks its form to close instead of closing it. Escape clicks the
// cancel button when the dialog has one, and asks the form to close otherwise; Enter clicks the
// form's default button.
class FormDialog : public QDialog {
  Q_OBJECT

 public:
  FormDialog(Form& form, FormBinding::Runner run, QWidget* parent);
  Form& BoundForm() const { return form_; }
  // `button` must outlive the dialog.
  void SetCancelButton(Button* button) { cancel_ = button; }
  void reject() override;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  Form& form_;
  FormBinding::Runner run_;
  Button* cancel_ = nullptr;
};

class MainWindow : public QMainWindow {
  Q_OBJECT

 public:
  // `model` and `window` must outlive the window.
  MainWindow(ScreenModel& model, WindowModel& window, QWidget* parent = nullptr);
  ~MainWindow() override;

  ScreenModel& Model() const { return model_; }
  WindowModel& Window() const { return window_; }
  // Copies the model to every widget, and shows or hides the window and the dialogs.
  void Refresh();
  // While on, a hidden frmMain is shown minimised instead (a desktop without a notification area
  // would otherwise leave no way back to the window).
  void SetMinimiseWhenHidden(bool on);
  // Runs a user's action on the model (an error is shown as a run-time error), then refreshes.
  void RunUserAction(const std::function<void()>& action);

  // Page `index` of tabDlg; the label the animation plays in.
  QWidget* Page(int index) const;
  QLabel* AnimationLabel() const { return animation_; }
  FormDialog* OptionsDialog() const { return optionsDialog_; }
  FormDialog* SetupDialog() const { return setupDialog_; }
  // The controls of all three forms that found no widget ("frmMain.cboCategories").
  QStringList Unbound() const;
  // The widget, QAction or QMenu of a control of any of the three forms; nullptr when none.
  QObject* WidgetOf(const Control& control) const;

  // Where an error no handler caught goes ("error 53 File not found"); by default a run-time
  // error box. A script played in the window takes it as the action's refusal.
  void SetErrorHandler(std::function<void(const std::string& reason)> handler) {
    errorHandler_ = std::move(handler);
  }
  // Help > About: the program's title, version and licence.
  void SetAbout(const QString& title, const QString& version);
  void ShowAbout();

 signals:
  // After every Refresh: front-ends sync their timers and notice an unloaded window here.
  void refreshed();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void BuildMenus();
  void BuildCentral();
  void BuildPage(int index, QWidget* page);
  void BuildOptionsDialog();
  void BuildSetupDialog();
  void ShowAsForm(QWidget* widget, const Form& form);
  FormBinding::Runner Runner();

  ScreenModel& model_;
  WindowModel& window_;
  QTabWidget* tabs_ = nullptr;
  QLabel* animation_ = nullptr;
  FormDialog* optionsDialog_ = nullptr;
  FormDialog* setupDialog_ = nullptr;
  std::vector<std::unique_ptr<FormBinding>> bindings_;
  bool refreshing_ = false;
  bool minimiseWhenHidden_ = false;
  bool minimisedForHidden_ = false;  // shown minimised in place of hidden
  std::function<void(const std::string&)> errorHandler_;
  QString aboutTitle_;
  QString aboutVersion_;
};

}  // namespace tolmen
