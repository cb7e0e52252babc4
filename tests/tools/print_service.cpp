#include "tools/print_service.h"

#include <netinet/in.h>
#include <pwd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <thread>

namespace qbrpt::test {

namespace fs = std::filesystem;

namespace {

bool Comes(const std::function<bool()>& holds, std::chrono::seconds patience = std::chrono::seconds(20)) {
    const auto until = std::chrono::steady_clock::now() + patience;
    while (!holds()) {
        if (std::chrono::steady_clock::now() > until) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return true;
}

std::string UserName() {
    const struct passwd* user = ::getpwuid(::getuid());
    return user == nullptr ? std::to_string(::getuid()) : user->pw_name;
}

/// A port of this machine that nobody listens on.
int FreePort() {
    const int handle = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof(address);
    auto* any = reinterpret_cast<sockaddr*>(&address);
    const bool bound = ::bind(handle, any, size) == 0 && ::getsockname(handle, any, &size) == 0;
    ::close(handle);
    if (!bound) throw std::runtime_error("no free port");
    return ntohs(address.sin_port);
}

void WriteProgram(const fs::path& file, const std::string& content) {
    WriteContent(file, content);
    fs::permissions(file, fs::perms(0755));
}

/// The description of a queue, as its scheduler wants it.
std::string DescriptionOf(const QueueKind& kind) {
    std::string text =
        "*PPD-Adobe: \"4.3\"\n*FormatVersion: \"4.3\"\n*FileVersion: \"1.0\"\n"
        "*LanguageVersion: English\n*LanguageEncoding: UTF-8\n*PCFileName: \"TEST.PPD\"\n"
        "*Manufacturer: \"Test\"\n*Product: \"(Folder)\"\n*ModelName: \"Test Folder\"\n"
        "*ShortNickName: \"Test Folder\"\n*NickName: \"Test Folder, PDF\"\n"
        "*PSVersion: \"(3010.000) 0\"\n*LanguageLevel: \"3\"\n*ColorDevice: True\n"
        "*DefaultColorSpace: RGB\n*FileSystem: False\n*cupsVersion: 2.4\n*cupsManualCopies: True\n"
        "*cupsFilter: \"application/vnd.cups-pdf 0 -\"\n";
    const auto choices = [&](const std::string& option, const std::string& title, const std::string& first,
                             const std::vector<std::string>& names) {
        text += "*OpenUI *" + option + "/" + title + ": PickOne\n*OrderDependency: 10 AnySetup *" + option +
                "\n*Default" + option + ": " + first + "\n";
        for (const std::string& name : names)
            text += "*" + option + " " + name + "/" + name + ": \"\"\n";
        text += "*CloseUI: *" + option + "\n";
    };
    std::vector<std::string> names;
    for (const QueueSize& size : kind.sizes)
        names.push_back(size.name);
    choices("PageSize", "Media Size", kind.defaultSize, names);
    choices("PageRegion", "Media Size", kind.defaultSize, names);
    std::string areas = "*DefaultImageableArea: " + kind.defaultSize + "\n";
    std::string extents = "*DefaultPaperDimension: " + kind.defaultSize + "\n";
    for (const QueueSize& size : kind.sizes) {
        const std::string dimension = std::to_string(size.width) + " " + std::to_string(size.height);
        areas += "*ImageableArea " + size.name + ": \"0 0 " + dimension + "\"\n";
        extents += "*PaperDimension " + size.name + ": \"" + dimension + "\"\n";
    }
    text += areas + extents;
    if (!kind.trays.empty()) choices("InputSlot", "Media Source", kind.trays.front(), kind.trays);
    if (kind.twoSided)
        choices("Duplex", "2-Sided Printing", "None", {"None", "DuplexNoTumble", "DuplexTumble"});
    return text;
}

} // namespace

PrintService::PrintService() {
    fs::permissions(mRoot.Path(), fs::perms(0755));
    for (const char* folder : {"root/ppd", "root/ssl", "spool/tmp", "cache", "state", "log", "bin/backend"})
        fs::create_directories(mRoot / folder);
    fs::create_directories(mRoot / "out");
    fs::permissions(mRoot / "out", fs::perms(0777));
    for (const char* folder : {"daemon", "driver", "filter", "monitor", "notifier"})
        fs::create_directory_symlink(fs::path("/usr/lib/cups") / folder,
                                     mRoot / ("bin/" + std::string(folder)));
    fs::copy_file("/usr/lib/cups/backend/ipp", mRoot / "bin/backend/ipp");
    fs::permissions(mRoot / "bin/backend/ipp", fs::perms(0755));
    WriteSettings();
    WriteBackend();
    Start();
    if (const char* server = std::getenv("CUPS_SERVER")) mServer = server;
    ::setenv("CUPS_SERVER", Socket().c_str(), 1);
    // The developer's own choice of printers is not the test's.
    if (const char* home = std::getenv("HOME")) mHome = home;
    ::setenv("HOME", mRoot.Path().c_str(), 1);
}

PrintService::~PrintService() {
    ::setenv("CUPS_SERVER", mServer.c_str(), 1);
    ::setenv("HOME", mHome.c_str(), 1);
    mPrinters.clear();
    mBus.reset();
    if (!mScheduler) return;
    // It ends its own filters and backends; killed it would leave them.
    mScheduler->Signal(SIGCONT);
    mScheduler->Signal(SIGTERM);
    Comes([&] { return !mScheduler->Running(); });
}

void PrintService::WriteSettings() const {
    const auto place = [&](const char* folder) { return (mRoot / folder).string() + "\n"; };
    const bool root = ::getuid() == 0;
    const std::string user = root ? "lp" : UserName();
    WriteContent(mRoot / "root/cups-files.conf",
                 "ServerRoot " + place("root") + "RequestRoot " + place("spool") + "TempDir " +
                     place("spool/tmp") + "CacheDir " + place("cache") + "StateDir " + place("state") +
                     "ServerBin " + place("bin") + "DataDir /usr/share/cups\nAccessLog " +
                     place("log/access_log") + "ErrorLog " + place("log/error_log") + "PageLog " +
                     place("log/page_log") + "ServerKeychain " + place("root/ssl") + "User " + user + "\n" +
                     (root ? "Group lp\nSystemGroup root lpadmin\n" : "SystemGroup root\n") +
                     "FileDevice Yes\nPrintcap\n");
    WriteContent(
        mRoot / "root/cupsd.conf",
        "Listen " + Socket() +
            "\nServerName localhost\nLogLevel debug\nMaxLogSize 0\nBrowsing Off\nBrowseLocalProtocols none\n"
            "WebInterface No\nDefaultAuthType None\nDefaultEncryption Never\nPreserveJobFiles No\n"
            "DirtyCleanInterval 0\n"
            "<Location />\n  Order allow,deny\n  Allow all\n</Location>\n"
            "<Location /admin>\n  Order allow,deny\n  Allow all\n</Location>\n"
            "<Policy default>\n  JobPrivateAccess all\n  JobPrivateValues none\n"
            "  SubscriptionPrivateAccess all\n  SubscriptionPrivateValues none\n"
            "  <Limit All>\n    Order allow,deny\n    Allow all\n  </Limit>\n</Policy>\n");
}

// The words are written last: where they are, the document is whole.
void PrintService::WriteBackend() const {
    WriteProgram(mRoot / "bin/backend/testdir",
                 "#!/bin/sh\n"
                 "[ $# -gt 0 ] || { echo 'direct testdir \"Unknown\" \"Test folder\"'; exit 0; }\n"
                 "folder=${DEVICE_URI#testdir:}\n"
                 "if [ $# -ge 6 ]; then cat \"$6\"; else cat; fi >\"$folder/job$1.part\"\n"
                 "mv \"$folder/job$1.part\" \"$folder/job$1.pdf\"\n"
                 "for word; do echo \"$word\"; done >\"$folder/job$1.new\"\n"
                 "mv \"$folder/job$1.new\" \"$folder/job$1.txt\"\n");
}

void PrintService::Start() {
    mScheduler = std::make_unique<ChildProcess>(
        std::vector<std::string>{"/usr/sbin/cupsd", "-f", "-c", (mRoot / "root/cupsd.conf").string(), "-s",
                                 (mRoot / "root/cups-files.conf").string()});
    if (!Comes([&] { return Tell({"lpstat", "-r"}).out.find("is running") != std::string::npos; }))
        throw std::runtime_error("no print service: " + mScheduler->ErrSoFar() + Log());
}

void PrintService::Freeze() const {
    mScheduler->Signal(SIGSTOP);
}

void PrintService::Thaw() const {
    mScheduler->Signal(SIGCONT);
}

void PrintService::Kill() {
    mScheduler.reset();
}

ProgramResult PrintService::Tell(std::vector<std::string> command) const {
    return RunProgram(
        std::move(command),
        {{"CUPS_SERVER", Socket()}, {"LC_ALL", "C.UTF-8"}, {"PATH", "/usr/sbin:/usr/bin:/sbin:/bin"}});
}

void PrintService::AddFolderQueue(const std::string& name, const QueueKind& kind) {
    WriteContent(mRoot / (name + ".ppd"), DescriptionOf(kind));
    AddSavingQueue(name, {"-P", (mRoot / (name + ".ppd")).string()});
}

void PrintService::AddRawQueue(const std::string& name) {
    AddSavingQueue(name, {"-m", "raw"});
}

void PrintService::AddSavingQueue(const std::string& name, const std::vector<std::string>& driver) {
    const fs::path folder = mRoot / ("out/" + name);
    fs::create_directories(folder);
    fs::permissions(folder, fs::perms(0777));
    std::vector<std::string> command = {
        "lpadmin", "-p",           name, "-E",      "-v", "testdir:" + folder.string(),
        "-D",      "طابعة المكتب", "-L", "القاعة 1"};
    command.insert(command.end(), driver.begin(), driver.end());
    const ProgramResult added = Tell(std::move(command));
    if (added.status != 0) throw std::runtime_error("no queue: " + added.err);
}

void PrintService::AddDriverlessQueue(const std::string& name) {
    if (!mBus) {
        const std::string address = "unix:path=" + (mRoot / "bus").string();
        WriteContent(mRoot / "bus.conf", "<busconfig><type>custom</type><listen>" + address +
                                             "</listen><auth>EXTERNAL</auth><policy "
                                             "context=\"default\"><allow user=\"*\"/><allow own=\"*\"/>"
                                             "<allow send_type=\"*\"/><allow send_destination=\"*\"/><allow "
                                             "receive_type=\"*\"/></policy></busconfig>");
        mBus = std::make_unique<ChildProcess>(std::vector<std::string>{
            "dbus-daemon", "--config-file=" + (mRoot / "bus.conf").string(), "--nofork"});
        if (!Comes([&] { return fs::exists(mRoot / "bus"); }))
            throw std::runtime_error("no bus: " + mBus->ErrSoFar());
    }
    const fs::path folder = mRoot / ("out/" + name);
    fs::create_directories(folder);
    fs::create_directories(mRoot / ("printer-" + name));
    WriteProgram(mRoot / (name + ".sh"), "#!/bin/sh\nnumber=$(ls '" + folder.string() +
                                             "' | grep -c pdf)\nnumber=$((number + 1))\n"
                                             "cp \"$1\" '" +
                                             folder.string() +
                                             "'/job$number.pdf\n"
                                             "env | grep ^IPP_ >'" +
                                             folder.string() +
                                             "'/new\n"
                                             "mv '" +
                                             folder.string() + "'/new '" + folder.string() +
                                             "'/job$number.txt\n");
    const std::string port = std::to_string(FreePort());
    mPrinters.push_back(std::make_unique<ChildProcess>(
        std::vector<std::string>{"ippeveprinter", "-r", "off", "-n", "localhost", "-p", port, "-2", "-f",
                                 "application/pdf,image/urf,image/pwg-raster", "-c",
                                 (mRoot / (name + ".sh")).string(), "-d",
                                 (mRoot / ("printer-" + name)).string(), name},
        ChildProcess::Environment{{"DBUS_SYSTEM_BUS_ADDRESS", "unix:path=" + (mRoot / "bus").string()}}));
    const std::string device = "ipp://localhost:" + port + "/ipp/print";
    const auto answers = [&] {
        return RunProgram({"ipptool", "-q", "-T", "2", device, "get-printer-attributes.test"}).status == 0;
    };
    if (!Comes(answers)) throw std::runtime_error("no driverless printer: " + mPrinters.back()->ErrSoFar());
    // The scheduler asks the printer what it can do, and answers before it knows.
    const auto known = [&] { return fs::exists(mRoot / ("cache/" + name + ".data")); };
    Tell({"lpadmin", "-p", name, "-E", "-v", device, "-m", "everywhere"});
    if (!Comes(known)) throw std::runtime_error("the driverless queue does not come: " + Log());
}

void PrintService::SetUserOption(const std::string& queue, const std::string& option) const {
    fs::create_directories(mRoot / ".cups");
    WriteContent(mRoot / ".cups/lpoptions", "Dest " + queue + " " + option + "\n");
}

std::size_t PrintService::PrintedCount(const std::string& queue) const {
    std::size_t count = 0;
    for (const auto& entry : fs::directory_iterator(mRoot / ("out/" + queue)))
        if (entry.path().extension() == ".txt") ++count;
    return count;
}

PrintedJob PrintService::Printed(const std::string& queue, std::size_t count) const {
    if (!Comes([&] { return PrintedCount(queue) >= count; }))
        throw std::runtime_error("nothing came out of " + queue + ":\n" + Log());
    std::vector<fs::path> jobs;
    for (const auto& entry : fs::directory_iterator(mRoot / ("out/" + queue)))
        if (entry.path().extension() == ".txt") jobs.push_back(entry.path());
    std::sort(jobs.begin(), jobs.end(), [](const fs::path& one, const fs::path& other) {
        return std::pair(one.string().size(), one) < std::pair(other.string().size(), other);
    });
    fs::path document = jobs.at(count - 1);
    const std::string words = ContentOf(document);
    return {document.replace_extension(".pdf"), words};
}

std::size_t PrintService::JobsUnderWay() const {
    const std::string jobs = Tell({"lpstat", "-o"}).out;
    return static_cast<std::size_t>(std::count(jobs.begin(), jobs.end(), '\n'));
}

std::size_t PrintService::Documents() const {
    std::size_t count = 0;
    for (const auto& entry : fs::directory_iterator(mRoot / "spool"))
        if (entry.is_regular_file() && !entry.path().filename().string().starts_with("c")) ++count;
    return count;
}

std::string PrintService::Log() const {
    return ContentOf(mRoot / "log/error_log");
}

} // namespace qbrpt::test
