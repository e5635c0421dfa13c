// Tests: SocketFolder
#include "qt/base/Strings.h"
#include "tests/qt/desktop/InstanceDesk.h"
#include "tests/qt/desktop/OtherProcess.h"

#include <QFileInfo>

#include <algorithm>
#include <fcntl.h>
#include <memory>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace tessa::qt {

namespace {

class SocketInstanceChannelTest : public InstanceDesk {
protected:
    SocketInstanceChannel m_first{m_state.path()};
};

TEST_F(SocketInstanceChannelTest, ALaterStartFindsTheFirstAndIsAnswered) {
    Run(m_first);
    const Start later = LaterStart();
    EXPECT_TRUE(later.running);
    EXPECT_EQ(later.foreground, Outcome::Done);
    EXPECT_EQ(later.message, Outcome::Done);
    EXPECT_EQ(m_messages, 1);
    EXPECT_EQ(m_tokens, QByteArrayList{QByteArray()});
}

TEST_F(SocketInstanceChannelTest, TheDesktopsPermissionGoesAlongWhateverItContains) {
    Run(m_first);
    qputenv("XDG_ACTIVATION_TOKEN", "a b\nmessage");
    EXPECT_EQ(LaterStart().foreground, Outcome::Done);
    qputenv("XDG_ACTIVATION_TOKEN", QByteArray(100000, 'x'));
    EXPECT_EQ(LaterStart().foreground, Outcome::Done);
    qunsetenv("XDG_ACTIVATION_TOKEN");
    ASSERT_EQ(m_tokens.size(), 2);
    EXPECT_EQ(m_tokens[0], "a b message");
    EXPECT_LT(m_tokens[1].size(), 4096);
    EXPECT_EQ(m_messages, 2) << "one for each start, none out of the permission";
}

TEST_F(SocketInstanceChannelTest, ATextArrivesWholeAndAsItIs) {
    Run(m_first);
    const std::vector<Text> texts{u"\"/a path/page.html\"", u"http://a/\nmessage 3\nx", u"\u00E4\U0001F600",
                                  PathFromBytes("/tmp/\xFF.tvg"), Text(InstanceMessage::kLongestText, u'x')};
    for (const Text& text : texts) EXPECT_EQ(LaterStart(10000, text).message, Outcome::Done);
    EXPECT_TRUE(m_texts == texts);
    EXPECT_EQ(LaterStart(10000, Text(InstanceMessage::kLongestText + 1, u'x')).message, Outcome::Failed);
    EXPECT_TRUE(m_texts == texts) << "half of it would be another address";
}

TEST_F(SocketInstanceChannelTest, OfManyHandOversAtOnceEachArrivesOnce) {
    Run(m_first);
    constexpr int kStarts = 12;
    std::vector<std::unique_ptr<OtherProcess>> starts;
    for (int each = 0; each < kStarts; ++each)
        starts.push_back(
            std::make_unique<OtherProcess>("Start", m_state.path(), QStringLiteral("http://a/%1").arg(each, 2)));
    ASSERT_TRUE(WaitUntil([this] { return m_messages == kStarts; }));
    for (auto& each : starts) {
        EXPECT_EQ(each->Answer(), 1) << "it did not find the instance";
        EXPECT_EQ(each->Answer(), 1) << "its message was not answered";
    }
    std::ranges::sort(m_texts);
    for (int each = 0; each < kStarts; ++each)
        EXPECT_EQ(m_texts[static_cast<std::size_t>(each)], FromQt(QStringLiteral("http://a/%1").arg(each, 2)));
}

TEST_F(SocketInstanceChannelTest, AMessageBeforeAnybodyHandlesItIsAnsweredAndIgnored) {
    Run(m_first);
    m_listening.End();
    const Start later = LaterStart();
    EXPECT_EQ(later.foreground, Outcome::Done);
    EXPECT_EQ(later.message, Outcome::Done);
}

TEST_F(SocketInstanceChannelTest, TheSocketAndTheLockAreTheUsersAlone) {
    Run(m_first);
    ASSERT_EQ(FilesOf(m_runtime.path()).size(), 2) << FilesOf(m_runtime.path()).join(u' ').toStdString();
    for (const QString& name : FilesOf(m_runtime.path())) {
        struct stat facts {};
        ASSERT_EQ(::lstat(QFile::encodeName(m_runtime.filePath(name)).constData(), &facts), 0);
        EXPECT_EQ(facts.st_mode & 07777, 0600U) << name.toStdString();
        EXPECT_EQ(S_ISSOCK(facts.st_mode), name.endsWith(u".socket"));
    }
}

TEST_F(SocketInstanceChannelTest, AnInstanceThatEndsLeavesNoSocket) {
    {
        SocketInstanceChannel other(m_state.path());
        Run(other);
        EXPECT_EQ(SocketsOf(m_runtime.path()).size(), 1);
    }
    EXPECT_TRUE(SocketsOf(m_runtime.path()).isEmpty());
    Run(m_first);
}

TEST_F(SocketInstanceChannelTest, AfterACrashTheNextStartRunsAndIsFoundAgain) {
    OtherProcess crashed("Start", m_state.path());
    ASSERT_EQ(crashed.Answer(), 0);
    EXPECT_TRUE(LaterStart().running);
    ASSERT_EQ(crashed.Answer(), 1);
    crashed.Kill();
    ASSERT_EQ(SocketsOf(m_runtime.path()).size(), 1) << "a crash leaves its socket";
    const QString left = Socket();

    Run(m_first);
    EXPECT_FALSE(QFileInfo::exists(left));
    EXPECT_EQ(SocketsOf(m_runtime.path()).size(), 1);
    EXPECT_EQ(LaterStart().message, Outcome::Done);
    EXPECT_EQ(m_messages, 1);
}

TEST_F(SocketInstanceChannelTest, WhatOnlyLooksLikeASocketIsNoInstance) {
    QString name;
    {
        SocketInstanceChannel other(m_state.path());
        Run(other);
        name = Socket();
    }
    const QString start = name.left(name.lastIndexOf(u'-') + 1);
    ASSERT_TRUE(QFile(start + QStringLiteral("1.socket")).open(QIODevice::WriteOnly));
    ASSERT_EQ(::mkfifo(QFile::encodeName(start + QStringLiteral("2.socket")).constData(), 0600), 0);
    ASSERT_TRUE(QFile::link(QStringLiteral("/nowhere/at all"), start + QStringLiteral("3.socket")));
    ASSERT_TRUE(QDir().mkdir(start + QStringLiteral("4.socket")));
    ASSERT_TRUE(QDir().mkdir(name)) << "even in the place of our own";
    SocketInstanceChannel hindered(m_state.path());
    Run(hindered);
    ASSERT_TRUE(QDir().rmdir(name));
    Run(m_first);
    EXPECT_EQ(LaterStart().message, Outcome::Done);
}

TEST_F(SocketInstanceChannelTest, OfManySimultaneousStartsOneRunsAndTheOthersFindIt) {
    constexpr int kStarts = 8;
    std::vector<std::unique_ptr<OtherProcess>> starts;
    for (int each = 0; each < kStarts; ++each)
        starts.push_back(std::make_unique<OtherProcess>("Start", m_state.path()));
    OtherProcess* first = nullptr;
    for (auto& each : starts) {
        if (each->Answer() != 0) {
            EXPECT_EQ(each->Answer(), 1) << "the message was not answered";
            EXPECT_TRUE(each->Succeeds());
            continue;
        }
        EXPECT_EQ(first, nullptr) << "two of them run";
        first = each.get();
    }
    ASSERT_TRUE(first);
    for (int message = 1; message < kStarts; ++message) EXPECT_EQ(first->Answer(), message);
    first->Kill();
}

TEST_F(SocketInstanceChannelTest, WhereSeveralMayRunTheOldestIsFound) {
    OtherProcess oldest("Start", m_state.path());
    ASSERT_EQ(oldest.Answer(), 0);
    ASSERT_EQ(m_first.RegisterMessage(kName), Outcome::Done);
    EXPECT_TRUE(m_first.PreviousInstance(Instances::Several));
    m_first.Message.ConnectForLife([this](const Text&) { ++m_messages; });
    EXPECT_EQ(SocketsOf(m_runtime.path()).size(), 2);
    EXPECT_EQ(LaterStart().message, Outcome::Done);
    EXPECT_EQ(oldest.Answer(), 1);
    EXPECT_EQ(m_messages, 0);
    oldest.Kill();
    EXPECT_EQ(LaterStart().message, Outcome::Done);
    EXPECT_EQ(m_messages, 1);
}

TEST_F(SocketInstanceChannelTest, AStartThatHangsWhileItHoldsTheLockHoldsUpNobodyForEver) {
    { Run(m_first); }
    const QString lock = m_runtime.filePath(FilesOf(m_runtime.path()).filter(QStringLiteral("lock")).value(0));
    const int held = ::open(QFile::encodeName(lock).constData(), O_RDWR | O_CLOEXEC);
    ASSERT_EQ(::flock(held, LOCK_EX | LOCK_NB), 0);
    const Start later = LaterStart(500);
    EXPECT_TRUE(later.running);
    EXPECT_EQ(later.message, Outcome::Done);
    ::close(held);
}

// Where the instances meet.

TEST_F(SocketInstanceChannelTest, WithoutAFitFolderOfTheDesktopsTheyMeetInTheStateFolder) {
    const auto meetsIn = [this](const QByteArray& runtime) {
        runtime.isNull() ? qunsetenv("XDG_RUNTIME_DIR") : qputenv("XDG_RUNTIME_DIR", runtime);
        SocketInstanceChannel channel(m_state.path());
        Run(channel);
        EXPECT_EQ(LaterStart().message, Outcome::Done);
        const bool state = SocketsOf(m_state.path()).size() == 1;
        return state ? "state" : SocketsOf(m_runtime.path()).size() == 1 ? "runtime" : "nowhere";
    };
    const QByteArray folder = QFile::encodeName(m_runtime.path());
    EXPECT_STREQ(meetsIn(folder), "runtime");
    EXPECT_STREQ(meetsIn({}), "state");
    EXPECT_STREQ(meetsIn(""), "state");
    EXPECT_STREQ(meetsIn("."), "state");
    EXPECT_STREQ(meetsIn(folder + "/missing"), "state");
    ASSERT_EQ(::chmod(folder.constData(), 0770), 0);
    EXPECT_STREQ(meetsIn(folder), "state") << "others may put files there";
    EXPECT_EQ(m_messages, 6);
}

TEST_F(SocketInstanceChannelTest, AFolderTooDeepForASocketsAddressDoesAsWell) {
    const QString deep = m_state.path() + QLatin1Char('/') + QString(120, u'd') + QLatin1Char('/') + QString(120, u'e');
    ASSERT_TRUE(QDir().mkpath(deep));
    QFile::setPermissions(deep, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    for (const bool desktops : {true, false}) {
        desktops ? qputenv("XDG_RUNTIME_DIR", QFile::encodeName(deep)) : qunsetenv("XDG_RUNTIME_DIR");
        const QString state = desktops ? m_state.path() : deep;
        OtherProcess first("Start", state);
        ASSERT_EQ(first.Answer(), 0);
        EXPECT_EQ(SocketsOf(deep).size(), 1);
        OtherProcess later("Start", state);
        EXPECT_EQ(later.Answer(), 1);
        EXPECT_EQ(later.Answer(), 1);
        EXPECT_TRUE(later.Succeeds());
        EXPECT_EQ(first.Answer(), 1);
        first.Kill();
        OtherProcess next("Start", state);
        EXPECT_EQ(next.Answer(), 0) << "what a crash left must not be taken for an instance";
        EXPECT_EQ(SocketsOf(deep).size(), 1);
        next.Kill();
        QFile::remove(deep + QLatin1Char('/') + SocketsOf(deep).value(0));
    }
}

TEST_F(SocketInstanceChannelTest, OtherStateFoldersAndOtherMessagesNeverMeet) {
    Run(m_first);
    const QTemporaryDir elsewhere;
    for (const QString& state :
         {elsewhere.path(), elsewhere.path() + QStringLiteral("/missing"), m_state.path() + QStringLiteral("/gone")}) {
        SocketInstanceChannel other(state);
        EXPECT_EQ(other.RegisterMessage(kName), Outcome::Done);
        EXPECT_FALSE(other.PreviousInstance(Instances::One)) << state.toStdString();
    }
    SocketInstanceChannel other(m_state.path());
    EXPECT_EQ(other.RegisterMessage(u"OTHER"), Outcome::Done);
    EXPECT_FALSE(other.PreviousInstance(Instances::One));
}

TEST_F(SocketInstanceChannelTest, AStateFolderByAnotherNameIsTheSame) {
    Run(m_first);
    const QTemporaryDir elsewhere;
    const QString link = elsewhere.filePath(QStringLiteral("link"));
    ASSERT_TRUE(QFile::link(m_state.path(), link));
    SocketInstanceChannel other(link + QStringLiteral("/./"));
    EXPECT_EQ(other.RegisterMessage(kName), Outcome::Done);
    EXPECT_TRUE(other.PreviousInstance(Instances::One));
}

TEST_F(SocketInstanceChannelTest, WhereThereIsNoFolderEveryStartRuns) {
    qunsetenv("XDG_RUNTIME_DIR");
    SocketInstanceChannel first(QStringLiteral("/nowhere/at/all")), second(QStringLiteral("/nowhere/at/all"));
    for (SocketInstanceChannel* each : {&first, &second}) {
        EXPECT_EQ(each->RegisterMessage(kName), Outcome::Failed);
        EXPECT_FALSE(each->PreviousInstance(Instances::One));
        EXPECT_EQ(each->SetForegroundWindow(), Outcome::Failed);
        EXPECT_EQ(each->SendMessage(u"http://a.example/"), Outcome::Failed);
    }
}

// A start of the program in a process of its own: prints 1 and how its message fared when another runs, else 0 and
// then each message's number until it is killed.
TEST(Role, DISABLED_Start) {
    SocketInstanceChannel channel(RoleFolder());
    ASSERT_EQ(channel.RegisterMessage(kName), Outcome::Done);
    const bool running = channel.PreviousInstance(Instances::One);
    Print(running);
    if (running) {
        Print(channel.SendMessage(FromQt(qEnvironmentVariable("ROLE_NAME"))) == Outcome::Done);
        return;
    }
    int messages = 0;
    channel.Message.ConnectForLife([&](const Text&) { Print(++messages); });
    for (;;) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

} // namespace

} // namespace tessa::qt
