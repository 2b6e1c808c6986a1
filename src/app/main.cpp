// quillon — the GUI. `quillon` starts from the settings store; `quillon --demo` makes the demo
// database once in the user's data folder and starts on it. For scripted runs (screenshots):
// --open ENTRY (menu entry, repeatable), --menu ENTRY (leave a top menu open),
// --size WIDTHxHEIGHT, --do STEP (repeatable: a step on the window in front, see
// script_steps.h), --screenshot FILE (save the screen and end); --help and --version are answered
// before Qt starts (program_help.h).
#include <QApplication>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QIcon>
#include <QMdiArea>
#include <QMenu>
#include <QMenuBar>
#include <QPixmap>
#include <QScreen>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "app/program_help.h"
#include "app/report_windows.h"
#include "app/script_steps.h"
#include "base/huge_page_heap.h"
#include "controls/text_width.h"
#include "qtui/form_view.h"
#include "qtui/main_frame.h"
#include "qtui/qt_convert.h"
#include "qtui/qt_dialogs.h"
#include "qtui/qt_translations.h"
#include "qtui/user_action.h"
#include "shell/app_session.h"
#include "shell/art_folder.h"
#include "shell/demo_start.h"
#include "shell/main_window.h"
#include "shell/startup.h"

namespace quillon {
namespace {

struct Options {
    bool demo = false;
    std::vector<std::string> open;
    std::vector<std::string> steps;
    std::string menu;
    std::string screenshot;
    int width = 1100;
    int height = 720;
};

[[noreturn]] void Usage(const std::string& problem) {
    std::fprintf(stderr, "quillon: %s\nTry 'quillon --help'.\n", problem.c_str());
    std::exit(2);
}

Options ParseOptions(const QStringList& args) {
    Options options;
    for (qsizetype i = 1; i < args.size(); ++i) {
        const QString& arg = args[i];
        auto value = [&]() -> std::string {
            if (i + 1 >= args.size()) Usage("option " + ToUtf8(arg) + " needs a value");
            return ToUtf8(args[++i]);
        };
        if (arg == "--demo") {
            options.demo = true;
        } else if (arg == "--open") {
            options.open.push_back(value());
        } else if (arg == "--do") {
            options.steps.push_back(value());
        } else if (arg == "--menu") {
            options.menu = value();
        } else if (arg == "--screenshot") {
            options.screenshot = value();
        } else if (arg == "--size") {
            const QStringList parts = ToQString(value()).split('x');
            if (parts.size() != 2 || parts[0].toInt() < 200 || parts[1].toInt() < 200) Usage("bad --size");
            options.width = parts[0].toInt();
            options.height = parts[1].toInt();
        } else {
            Usage("unknown option " + ToUtf8(arg));
        }
    }
    return options;
}

// The windows' font, with CJK glyphs; grid captions are measured in it.
void UseWindowsFont(QApplication& app) {
    QFont font(QStringLiteral("Noto Sans CJK SC"));
    font.setPointSize(9);
    app.setFont(font);
    QFontMetrics metrics(font);
    SetTextWidthMeasure([metrics](std::string_view text) {
        return PixelsToTwips(metrics.horizontalAdvance(ToQString(text)));
    });
}

// The scripted part of a run: open the entries, leave a menu open, save the screen, end.
void RunScript(const Options& options, MainFrame& frame) {
    int delay = 300;
    for (const std::string& entry : options.open) {
        QTimer::singleShot(delay, &frame, [&frame, entry] {
            QAction* action = frame.ActionOf(entry);
            if (!action) {
                std::fprintf(stderr, "quillon: no menu entry %s\n", entry.c_str());
                std::exit(2);
            }
            action->trigger();
        });
        delay += 250;
    }
    for (const std::string& step : options.steps) {
        QTimer::singleShot(delay, &frame, [&frame, step] {
            auto* window = dynamic_cast<FormSubWindow*>(frame.MdiArea()->activeSubWindow());
            std::string problem = window && window->Model() ? std::string() : "no window in front";
            if (problem.empty()) RunUserAction([&] { problem = RunScriptStep(*window->Model(), step); });
            if (!problem.empty()) {
                std::fprintf(stderr, "quillon: --do %s: %s\n", step.c_str(), problem.c_str());
                std::exit(2);
            }
        });
        delay += 150;
    }
    if (!options.menu.empty()) {
        QTimer::singleShot(delay, &frame, [&frame, entry = options.menu] {
            QAction* action = frame.ActionOf(entry);
            if (!action || !action->menu()) {
                std::fprintf(stderr, "quillon: no top menu %s\n", entry.c_str());
                std::exit(2);
            }
            const QRect place = frame.menuBar()->actionGeometry(action);
            action->menu()->popup(frame.menuBar()->mapToGlobal(place.bottomLeft()));
        });
        delay += 400;
    }
    if (!options.screenshot.empty()) {
        QTimer::singleShot(delay + 400, &frame, [&frame, file = options.screenshot] {
            // The screen holds open menus too; without a display server, the frame alone.
            QPixmap shot;
            if (QGuiApplication::platformName() == "xcb" && frame.screen())
                shot = frame.screen()->grabWindow(0, frame.x(), frame.y(), frame.frameGeometry().width(),
                                                  frame.frameGeometry().height());
            if (shot.isNull()) shot = frame.grab();
            const bool saved = shot.save(ToQString(file), "PNG");
            std::fflush(nullptr);
            std::_Exit(saved ? 0 : 1);
        });
    }
}

int Run(QApplication& app) {
    const Options options = ParseOptions(app.arguments());
    UseWindowsFont(app);
    QtDialogs dialogs(QString::fromUtf8(kAppName));
    SetUserActionDialogs(&dialogs);

    IniSettingsStore store(UserConfigRoot());
    OverlaySettingsStore demoSettings(store);
    const SettingsStore* settings = &store;
    if (options.demo) {
        const auto path = DemoDatabasePath(UserDataRoot());
        try {
            if (EnsureDemoDatabase(path, DemoEndingIn(DateTime::Today())))
                std::fprintf(stderr, "quillon: demo database written to %s\n", path.c_str());
        } catch (const std::exception& e) {
            std::fprintf(stderr, "quillon: %s\n", e.what());
            return 1;
        }
        PointSettingsAtDemo(demoSettings, path);
        settings = &demoSettings;
    }

    AppSession session;
    std::unique_ptr<MDIForm1> mdi;
    std::unique_ptr<MainFrame> frame;
    const bool started = Main(session, dialogs, *settings, [&] {
        const std::filesystem::path programFolder = ToUtf8(QCoreApplication::applicationDirPath());
        mdi = std::make_unique<MDIForm1>(session, dialogs,
                                         FindArtFolder(programFolder, QUILLON_INSTALLED_ART).string());
        RegisterReportWindows(*mdi);
        frame = std::make_unique<MainFrame>(*mdi, QPixmap(QStringLiteral(":/quillon/banner.png")));
        frame->resize(options.width, options.height);
        frame->show();
        RunUserAction([&] { mdi->Show(); });
    });
    if (!started) return 1;
    RunScript(options, *frame);
    const int status = app.exec();
    frame.reset(); // the views let go before the windows they draw
    return status;
}

} // namespace
} // namespace quillon

int main(int argc, char** argv) {
    quillon::StartWithHugePageHeap(argv);
    if (const auto status = quillon::AnswerHelpOrVersion(argc, argv)) return *status;
    QApplication app(argc, argv);
    if (std::unique_ptr<QTranslator> qtTexts = quillon::LoadQtTranslations())
        QCoreApplication::installTranslator(qtTexts.release()); // lives as long as the program
    QApplication::setApplicationName(QString::fromUtf8(quillon::kAppName));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/quillon/icon.png")));
    return quillon::Run(app);
}
