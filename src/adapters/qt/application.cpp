#include "adapters/qt/application.h"

#include "adapters/qt/arabic_words.h"
#include "adapters/qt/look.h"
#include "adapters/window/x_session.h"
#include "base/failure.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QPluginLoader>
#include <QtCore/QThread>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyleFactory>

#include <algorithm>

namespace qbrpt::qt {

namespace {

constexpr const char* NoDisplay = "There is no display to show windows on.";

bool WaylandAnswers() {
    const QString socket = qEnvironmentVariable("WAYLAND_DISPLAY");
    if (socket.isEmpty()) return false;
    return QFileInfo::exists(QDir(qEnvironmentVariable("XDG_RUNTIME_DIR")).filePath(socket));
}

bool DisplayAnswers(const QString& platform) {
    if (platform == "xcb") return XSession().Connected();
    if (platform.startsWith("wayland")) return WaylandAnswers();
    return true; // offscreen, and what needs no server
}

/// The platforms of Qt's to try, each with what the user has set behind its name: those that he names, else
/// X11, which knows where the host's window stands, else Wayland.
QStringList Candidates() {
    const QString wanted = qEnvironmentVariable("QT_QPA_PLATFORM");
    return (wanted.isEmpty() ? QStringLiteral("xcb;wayland") : wanted).split(';', Qt::SkipEmptyParts);
}

QString NameOf(const QString& candidate) {
    return candidate.section(':', 0, 0);
}

/// Loads the plugin, so that a library that it misses is a failure with words. It stays loaded.
QString PluginFault(const QString& platform) {
    QString fault = "Qt's platform \"" + platform + "\" is not installed.";
    for (const QString& folder : QCoreApplication::libraryPaths()) {
        const QDir plugins(folder + "/platforms");
        for (const QFileInfo& file : plugins.entryInfoList({"libq" + platform + "*.so"}, QDir::Files)) {
            QPluginLoader plugin(file.filePath());
            if (plugin.load()) return {};
            fault = plugin.errorString();
        }
    }
    return fault;
}

struct PlatformChoice {
    QString platform; ///< empty: none
    QString fault = NoDisplay;
};

PlatformChoice Choose() {
    PlatformChoice choice;
    for (const QString& candidate : Candidates()) {
        if (!DisplayAnswers(NameOf(candidate))) continue;
        choice.fault = PluginFault(NameOf(candidate));
        if (choice.fault.isEmpty()) return {candidate, {}};
    }
    return choice;
}

QString FaultOfHostApplication(const QCoreApplication& application) {
    if (qobject_cast<const QApplication*>(&application) == nullptr)
        return "The host's Qt application is none for widgets (QApplication); no window can be shown.";
    if (application.thread() != QThread::currentThread())
        return "Windows can only be shown on the thread of the host's Qt application.";
    return {};
}

/// What an application keeps pointing at as long as it lives.
struct CommandLine {
    explicit CommandLine(const QString& platform) : platformName(platform.toUtf8()) {}
    QByteArray platformName;
    char program[6] = "qbrpt";
    char option[10] = "-platform";
    char* words[4] = {program, option, platformName.data(), nullptr};
    int count = 3;
};

void MakeApplication(const QString& platform) {
    // Neither ends before the process: windows of a host may outlive our own, and Qt wants to be left last.
    static auto* commandLine = new CommandLine(platform);
    static auto* application = new QApplication(commandLine->count, commandLine->words);
    // The host decides when the process ends.
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QApplication::setPalette(HousePalette());
    application->setFont(WindowFont());
    // A host's own application speaks the language that its host has given it.
    QCoreApplication::installTranslator(new ArabicWords(application));
}

} // namespace

std::string WhyNoWindows() {
    if (const auto* application = QCoreApplication::instance())
        return FaultOfHostApplication(*application).toStdString();
    return Choose().fault.toStdString();
}

bool DisplayIsThere() {
    if (QCoreApplication::instance() != nullptr) return ApplicationIsThere();
    const QStringList candidates = Candidates();
    return std::any_of(candidates.begin(), candidates.end(),
                       [](const QString& candidate) { return DisplayAnswers(NameOf(candidate)); });
}

bool ApplicationIsThere() {
    const auto* application = QCoreApplication::instance();
    return application != nullptr && FaultOfHostApplication(*application).isEmpty();
}

void RequireApplication() {
    if (ApplicationIsThere()) return;
    if (const std::string fault = WhyNoWindows(); !fault.empty()) throw Failure(FailureNumber::Device, fault);
    MakeApplication(Choose().platform);
}

} // namespace qbrpt::qt
