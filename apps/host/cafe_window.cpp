#include "cafe_window.h"

#include "heading_panel.h"
#include "look.h"
#include "member_form.h"
#include "member_list.h"
#include "open_database.h"

#include <QtCore/QTimer>
#include <QtGui/QCloseEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QBoxLayout>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStatusBar>

#include <algorithm>
#include <utility>

namespace cafe {

namespace {

constexpr int Width = 940;
constexpr int Height = 660;
constexpr int ListWidth = 300;
// The window manager tells everybody who is in front a moment after it has told us.
constexpr int TellingTime = 100;
// Where nobody tells who is in front.
constexpr int LongestWait = 1000;

const Member& MemberCalled(std::string_view name) {
    return *std::find_if(Members().begin(), Members().end(),
                         [&](const Member& member) { return member.name == name; });
}

} // namespace

CafeWindow::CafeWindow()
    : mHeading(new HeadingPanel(
          [this] {
              if (const QString file = AskForDatabase(this); !file.isEmpty()) OpenInFront(file);
          },
          [this] { HandHeadingOver(); }, this)) {
    setObjectName("cafeWindow");
    setWindowTitle(QStringLiteral("مقهى الواحة"));
    auto* whole = new QWidget(this);
    auto* column = new QVBoxLayout(whole);
    column->setContentsMargins(WindowPadding, WindowPadding - 6, WindowPadding, WindowPadding);
    column->setSpacing(BlockGap);
    column->addWidget(mHeading);
    auto* middle = new QHBoxLayout;
    middle->setSpacing(BlockGap);
    mList = new MemberList(whole);
    mList->setFixedWidth(ListWidth);
    middle->addWidget(mList);
    middle->addWidget(MakeMemberPart(), 1);
    column->addLayout(middle, 1);
    setCentralWidget(whole);
    statusBar()->setSizeGripEnabled(false);
    resize(Width, Height);

    connect(mList, &QListWidget::currentRowChanged, this, &CafeWindow::Choose);
    connect(mList, &QListWidget::itemActivated, this, &CafeWindow::Run);
    mHeading->SetLines({"مقهى الواحة للإنترنت", "الدوحة، شارع السد", "هاتف 44455667"});
    mList->setCurrentRow(0);
    mList->setFocus();
    ShowAnswers();
}

QWidget* CafeWindow::MakeMemberPart() {
    auto* part = new QGroupBox(QStringLiteral("الأمر"), this);
    mForm = new MemberForm(part);
    auto* run = new QPushButton(QStringLiteral("تشغيل"), part);
    run->setObjectName("run");
    run->setDefault(true);
    run->setShortcut(Qt::CTRL | Qt::Key_Return);
    connect(run, &QPushButton::clicked, this, &CafeWindow::Run);
    auto* column = new QVBoxLayout(part);
    column->addWidget(mForm, 1);
    column->addWidget(run, 0, Qt::AlignLeft | Qt::AlignAbsolute);
    return part;
}

void CafeWindow::Choose(int row) {
    if (row < 0) return;
    mForm->Show(Members()[static_cast<std::size_t>(row)]);
    statusBar()->clearMessage();
}

void CafeWindow::Run() {
    if (mCalling) return;
    const Member& member = mForm->Shown();
    try {
        Call(member, mForm->Arguments());
    } catch (const Fault& fault) {
        statusBar()->showMessage(QString::fromStdString(member.name + ": " + fault.what()));
    }
}

void CafeWindow::OpenInFront(const QString& file) {
    DoInFront([this, file] { Open(file); });
}

void CafeWindow::Open(const QString& file) {
    Call(MemberCalled("SetDbInfo"), {file.toStdString(), std::string{}});
}

void CafeWindow::DoInFront(std::function<void()> action) {
    mWaiting = std::move(action);
    QTimer::singleShot(isActiveWindow() ? TellingTime : LongestWait, this, &CafeWindow::DoWaiting);
}

void CafeWindow::DoWaiting() {
    if (mWaiting && !mCalling) std::exchange(mWaiting, nullptr)();
}

void CafeWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && mWaiting)
        QTimer::singleShot(TellingTime, this, &CafeWindow::DoWaiting);
}

void CafeWindow::closeEvent(QCloseEvent* event) {
    event->setAccepted(!mCalling); // a member that is at work needs its host
    if (event->isAccepted()) QApplication::quit();
}

void CafeWindow::HandHeadingOver() {
    const HeadingPanel::Heading lines = mHeading->Lines();
    mReports.SetMainTitle(lines[0], lines[1], lines[2]);
}

void CafeWindow::Follow(const Member& member, const std::vector<Argument>& arguments,
                        const std::string& answer) {
    const auto text = [&](std::size_t place) { return std::get<std::string>(arguments[place]); };
    if (member.name == "SetMainTitle") mHeading->SetLines({text(0), text(1), text(2)});
    if (member.name == "SetDbInfo" && answer == "1") mHeading->SetFile(QString::fromStdString(text(0)));
    if (member.name == "SetDatabase") mHeading->SetFile({});
}

void CafeWindow::Call(const Member& member, const std::vector<Argument>& arguments) {
    QWidget* focus = focusWidget();
    mCalling = true;
    centralWidget()->setEnabled(false);
    const std::string answer = member.call(mReports, arguments);
    centralWidget()->setEnabled(true);
    mCalling = false;
    if (focus != nullptr) focus->setFocus();
    Follow(member, arguments, answer);
    ShowAnswers();
    const QString name = QString::fromStdString(member.name);
    statusBar()->showMessage(answer.empty()
                                 ? QStringLiteral("انتهى الأمر \u2066%1\u2069.").arg(name)
                                 : QStringLiteral("أعاد الأمر \u2066%1\u2069 القيمة \u2066%2\u2069.")
                                       .arg(name, QString::fromStdString(answer)));
}

void CafeWindow::ShowAnswers() {
    mHeading->SetAnswers(mReports.IsDbValid(), mReports.CanPrint());
}

} // namespace cafe
