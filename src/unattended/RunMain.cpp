#include "unattended/RunMain.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <ostream>

#include "runtime/RuntimeError.h"
#include "runtime/SystemPath.h"
#include "shell/AppInfo.h"
#include "shell/ProcessEnd.h"
#include "shell/Startup.h"
#include "shell/Tolmen.h"
#include "unattended/Preview.h"
#include "unattended/TimerUnits.h"
#include "wizard/WizardHandlers.h"

namespace tolmen {
namespace {

// The variables a scheduled run needs from the installing shell, when set there.
constexpr const char* kRunEnvironment[] = {"TOLMEN_HOME", "MAXIMIZER_SOCKET", "XDG_CONFIG_HOME",
                                           "XDG_DATA_HOME", "LANG"};

int TimerCommand(const RunCommandLine& line, const std::string& program, std::ostream& out,
                 std::ostream& err) {
  const std::string folder = UserUnitFolder();
  if (folder.empty()) {
    err << "tolmen run: neither XDG_CONFIG_HOME nor HOME is set\n";
    return kRunCallUsage;
  }
  std::string error;
  if (line.action == RunCommandLine::Action::kRemoveTimer) {
    out << "Stop the timer first: systemctl --user disable --now " << kTimerName << "\n";
    if (!RemoveTimerUnits(folder, error)) {
      err << "tolmen run: " << error << "\n";
      return kRunCallNotStarted;
    }
    out << "Removed " << folder << kServiceName << " and " << folder << kTimerName << "\n";
    return kRunCallOk;
  }
  TimerRequest request;
  request.program = program;
  request.everyMinutes = line.everyMinutes;
  request.at = line.at;
  if (line.request.json) request.arguments.push_back("--json");
  if (line.request.quiet) request.arguments.push_back("--quiet");
  if (line.acceptCodes) request.arguments.push_back("--accept-codes");
  for (const std::string& path : line.templatesUtf8)
    request.arguments.push_back(std::filesystem::absolute(path).lexically_normal().string());
  for (const char* name : kRunEnvironment)
    if (const char* value = std::getenv(name); value != nullptr && *value != '\0')
      request.environment.emplace_back(name, value);
  if (line.action == RunCommandLine::Action::kPrintTimer) {
    out << "# " << folder << kServiceName << "\n"
        << ServiceUnit(request) << "\n# " << folder << kTimerName << "\n"
        << TimerUnit(request);
    return kRunCallOk;
  }
  if (!WriteTimerUnits(folder, request, error)) {
    err << "tolmen run: " << error << "\n";
    return kRunCallNotStarted;
  }
  out << "Wrote " << folder << kServiceName << " and " << folder << kTimerName << "\n"
      << "To start the timer, type:\n  systemctl --user daemon-reload\n"
      << "  systemctl --user enable --now " << kTimerName << "\n";
  return kRunCallOk;
}

}  // namespace

int ParseRunCommandLine(int argc, const char* const* argv, RunCommandLine& line, std::ostream& out,
                        std::ostream& err) {
  CLI::App cli{"Runs Tolmen templates without a window and without questions.", "tolmen run"};
  cli.footer(
      "Exit status: 0 all ran without errors, 1 a run counted errors, 2 a template could not "
      "start, 3 cancelled (SIGINT, SIGTERM), 4 usage error. See docs/unattended.md.");
  cli.add_option("TEMPLATE", line.templatesUtf8, "Template files (.KTF), run in this order");
  cli.add_flag("--json", line.request.json, "One JSON object per template on standard output");
  cli.add_flag("-q,--quiet", line.request.quiet, "Print only errors");
  cli.add_flag("--accept-codes", line.acceptCodes,
               "Take the proposed Pastel account number where one would be asked for (else the "
               "client is skipped)");
  bool preview = false;
  CLI::Option* previewFlag = cli.add_flag(
      "--preview", preview,
      "Run against a copy of the Pastel folder, keeping Maximizer's writes: print what the run "
      "would write and change nothing");
  bool flags[3] = {false, false, false};  // install, print, remove
  CLI::Option* install = cli.add_flag("--install-timer", flags[0],
                                      "Write the systemd user service and timer for the templates");
  CLI::Option* print =
      cli.add_flag("--print-timer", flags[1], "Print the two units without writing them");
  CLI::Option* remove = cli.add_flag("--remove-timer", flags[2], "Remove the two units");
  CLI::Option* every = cli.add_option("--every", line.everyMinutes, "Timer: every MINUTES")
                           ->check(CLI::PositiveNumber);
  CLI::Option* at = cli.add_option("--at", line.at, "Timer: daily at HH:MM")->excludes(every);
  install->excludes(print)->excludes(remove)->excludes(previewFlag);
  previewFlag->excludes(print)->excludes(remove);
  print->excludes(remove);
  remove->excludes(every)->excludes(at);
  try {
    // argv[1] is the word "run".
    std::vector<std::string> args;
    for (int i = argc - 1; i >= 2; --i) args.emplace_back(argv[i]);
    cli.parse(args);
    const bool timer = install->count() > 0 || print->count() > 0;
    if (remove->count() > 0) {
      if (!line.templatesUtf8.empty())
        throw CLI::ValidationError("--remove-timer takes no TEMPLATE");
      line.action = RunCommandLine::Action::kRemoveTimer;
      return -1;
    }
    if (!timer && (every->count() > 0 || at->count() > 0))
      throw CLI::ValidationError("--every and --at go with --install-timer or --print-timer");
    if (timer && every->count() == 0 && at->count() == 0)
      throw CLI::ValidationError("the timer needs --every MINUTES or --at HH:MM");
    if (at->count() > 0 && !IsClockTime(line.at))
      throw CLI::ValidationError("--at: not a time HH:MM: " + line.at);
    if (line.templatesUtf8.empty()) throw CLI::ValidationError("TEMPLATE: at least one is needed");
    if (timer)
      line.action = install->count() > 0 ? RunCommandLine::Action::kInstallTimer
                                         : RunCommandLine::Action::kPrintTimer;
    else if (preview)
      line.action = RunCommandLine::Action::kPreview;
    for (const std::string& path : line.templatesUtf8)
      line.request.templates.push_back(PathFromSystem(path));
  } catch (const CLI::ParseError& error) {
    const int status = cli.exit(error, out, err);
    return status == 0 ? kRunCallOk : kRunCallUsage;
  } catch (const RuntimeError& error) {
    err << "tolmen run: " << error.Description() << "\n";
    return kRunCallUsage;
  }
  return -1;
}

void LoadForRun(Tolmen& app) {
  WireMainForm(app);
  WireShell(app);
  app.screen.frmMain.Show();
}

void UnloadAfterRun(Tolmen& app) {
  try {
    app.screen.frmMain.Unload();
  } catch (const ProcessEnd&) {
  }
}

int TolmenRun(int argc, const char* const* argv, const std::string& program, Clock& clock,
              bool stderrTerminal, std::ostream& out, std::ostream& err) {
  RunCommandLine line;
  if (const int status = ParseRunCommandLine(argc, argv, line, out, err); status >= 0)
    return status;
  if (line.action != RunCommandLine::Action::kRun &&
      line.action != RunCommandLine::Action::kPreview)
    return TimerCommand(line, program, out, err);

  AppInfo info;
  try {
    info = MakeAppInfo(ResolveAppFolder(), TOLMEN_VERSION);
  } catch (const RuntimeError& error) {
    err << "tolmen run: " << error.Description() << "\n";
    return kRunCallNotStarted;
  }
  const UnattendedUi::Settings uiSettings{line.acceptCodes, line.request.quiet, stderrTerminal};
  if (line.action == RunCommandLine::Action::kPreview) {
    int status = kRunCallOk;
    for (const std::string& path : line.request.templates) {
      const PreviewResult result =
          PreviewTemplate(path, info.AppFolder, Settings::DefaultPath(), clock, uiSettings, err);
      out << (line.request.json ? PreviewJson(result) + "\n" : PreviewText(result));
      out.flush();
      status = std::max<int>(status, StatusOf(result.run.outcome));
      if (result.run.outcome == TemplateOutcome::kCancelled) break;
    }
    return status;
  }
  UnattendedUi ui(err, clock, info.AppName, uiSettings);
  Tolmen app(info, ui, clock);
  ui.Attach(&app);
  LoadForRun(app);
  const int status = RunTemplates(app, ui, line.request, out, err);
  UnloadAfterRun(app);
  ui.Attach(nullptr);
  return status;
}

std::string TolmenHelpText() {
  return "Usage:\n"
         "  tolmen [/SILENT] [/QUIT] [/NOAUTO] [/C] [TEMPLATE]\n"
         "      The wizard; a template named here (relative to the program's folder, or a path\n"
         "      written with backslashes) is run at start-up.\n"
         "  tolmen run [--json] [--quiet] [--accept-codes] TEMPLATE...\n"
         "      Runs templates without a window and without questions (plain paths).\n"
         "  tolmen run --preview [--json] TEMPLATE...\n"
         "      What the run would write, made against a copy; nothing changes.\n"
         "  tolmen undo [RUN-ID | --last] [--dry-run] [--json] PASTEL_DIR\n"
         "      Puts back the UDF values a run wrote and sets its import files aside.\n"
         "  tolmen calendar TEMPLATE --from DATE --to DATE [--clients] [--json | --csv]\n"
         "      The days the template's billing would run, and whom it would invoice.\n"
         "  tolmen run --install-timer|--print-timer (--every MINUTES | --at HH:MM) TEMPLATE...\n"
         "  tolmen run --remove-timer\n"
         "      The systemd user timer that runs `tolmen run` on a schedule.\n"
         "  tolmen run --help     the options of `tolmen run`\n"
         "  tolmen --version\n";
}

}  // namespace tolmen
