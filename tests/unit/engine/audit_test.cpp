// SPDX-License-Identifier: Apache-2.0
// The audit record: its lines, what they never hold, and that nobody waits for them.
#include "host/engine/audit.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <fstream>
#include <iterator>
#include <regex>
#include <thread>

#include <fcntl.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include "engine/engine_fixture.h"
#include "engine/passwords.h"

using namespace std::string_view_literals;

namespace {

std::string content(const std::string& path)
{
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

class AuditTest : public ::testing::Test {
  protected:
    ~AuditTest() override
    {
        std::string error;
        engine::open_audit("", &error);
    }

    void open()
    {
        std::string error;
        ASSERT_TRUE(engine::open_audit(file.path(), &error)) << error;
    }

    std::string written() const
    {
        engine::flush_audit();
        return content(file.path());
    }

    PrivateFile file{""};
};

// Reads a pipe until the text came.
std::string read_until(int fd, const std::string& wanted)
{
    std::string all;
    char bytes[65536];
    pollfd entry{fd, POLLIN, 0};
    while (all.find(wanted) == std::string::npos && poll(&entry, 1, 10000) > 0) {
        ssize_t size = read(fd, bytes, sizeof bytes);
        if (size > 0) all.append(bytes, static_cast<std::size_t>(size));
    }
    return all;
}

} // namespace

TEST(AuditValue, CannotEndTheFieldOrTheLine)
{
    EXPECT_EQ(engine::audit_value("plain text"), "plain text");
    EXPECT_EQ(engine::audit_value("a\"b\\c]d"), "a\\\"b\\\\c\\]d");
    EXPECT_EQ(engine::audit_value("a\r\n\t\x1b[2J\x7f\0b"sv), "a\u240d\u240a\u2409\u241b[2J\u2421\u2400b");
    EXPECT_EQ(engine::audit_value("gr\u00fc\u00df \u65e5 \U0001f600"), "gr\u00fc\u00df \u65e5 \U0001f600");
    EXPECT_EQ(engine::audit_value("a\xff\xc3"), "a\ufffd\ufffd");
    EXPECT_EQ(engine::audit_value("\xc0\xaf \xed\xa0\x80 \xf4\x90\x80\x80"),
              "\ufffd\ufffd \ufffd\ufffd\ufffd \ufffd\ufffd\ufffd\ufffd")
        << "overlong, surrogate, beyond the last character";
    EXPECT_EQ(engine::audit_value("\xc2\x85 \u2028 \u202e \u200b \ufeff"), "\ufffd \ufffd \ufffd \ufffd \ufffd");
    EXPECT_EQ(engine::audit_value("\xe2\x82"), "\ufffd\ufffd");
}

TEST_F(AuditTest, WritesRfc5424)
{
    open();
    engine::audit(engine::Severity::Notice, "LOGIN", {{"user", "ann"}, {"from", "a\"\n<13>1 forged"}});
    std::string line = written();
    EXPECT_TRUE(
        std::regex_match(line, std::regex("<109>1 \\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d\\.\\d{6}Z \\S+ " +
                                          std::string(program_invocation_short_name) + " " + std::to_string(getpid()) +
                                          " LOGIN \\[console@32473 user=\"ann\" from=\"a\\\\\"\u240a<13>1 "
                                          "forged\"\\]\n")))
        << line;
}

TEST_F(AuditTest, FollowsARenamedFile)
{
    open();
    engine::audit(engine::Severity::Notice, "FIRST", {});
    engine::flush_audit();
    std::string old = file.path() + ".1";
    ASSERT_EQ(rename(file.path().c_str(), old.c_str()), 0);
    engine::audit(engine::Severity::Notice, "SECOND", {});
    engine::flush_audit();
    engine::reopen_audit();
    engine::audit(engine::Severity::Notice, "THIRD", {});
    EXPECT_NE(written().find("THIRD"), std::string::npos);
    EXPECT_EQ(written().find("SECOND"), std::string::npos);
    EXPECT_NE(content(old).find("SECOND"), std::string::npos);
    struct stat status {};
    ASSERT_EQ(stat(file.path().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
    unlink(old.c_str());
}

TEST_F(AuditTest, RefusesAFileThatCannotBeOpened)
{
    std::string error;
    EXPECT_FALSE(engine::open_audit("/no/such/folder/audit", &error));
    EXPECT_EQ(error, "audit /no/such/folder/audit: No such file or directory");
    EXPECT_FALSE(engine::audits());
}

namespace {

// A receiver as the system's log is one: a datagram socket.
class LogReceiver {
  public:
    LogReceiver()
    {
        listen();
    }
    ~LogReceiver()
    {
        close_socket();
    }
    LogReceiver(const LogReceiver&) = delete;
    LogReceiver& operator=(const LogReceiver&) = delete;

    const std::string& path() const
    {
        return file_path;
    }
    void listen()
    {
        fd = socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        file_path.copy(address.sun_path, sizeof address.sun_path - 1);
        ASSERT_EQ(bind(fd, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    }
    void close_socket()
    {
        close(fd);
        unlink(file_path.c_str());
    }
    // The next datagram.
    std::string next() const
    {
        pollfd entry{fd, POLLIN, 0};
        char bytes[65536];
        ssize_t size = poll(&entry, 1, 10000) > 0 ? recv(fd, bytes, sizeof bytes, 0) : 0;
        return {bytes, size > 0 ? static_cast<std::size_t>(size) : 0};
    }

  private:
    std::string file_path = "/tmp/epon-log-receiver-" + std::to_string(getpid());
    int fd = -1;
};

} // namespace

TEST_F(AuditTest, TheSystemsLogGetsADatagramForEachRecord)
{
    LogReceiver log;
    std::string error;
    ASSERT_TRUE(engine::open_audit("syslog:" + log.path(), &error)) << error;
    engine::audit(engine::Severity::Warning, "LOGIN_FAILED", {{"user", "a\"]\n<13>b"}});
    engine::audit(engine::Severity::Informational, "COMMAND", {{"command", std::string(16384, 'x')}});
    std::string first = log.next();
    EXPECT_TRUE(std::regex_match(
        first, std::regex("<108>[A-Z][a-z]{2} [ 1-3]\\d \\d\\d:\\d\\d:\\d\\d " +
                          std::string(program_invocation_short_name) + "\\[" + std::to_string(getpid()) +
                          "\\]: LOGIN_FAILED \\[console@32473 user=\"a\\\\\"\\\\\\]\u240a<13>b\"\\]")))
        << first;
    std::string second = log.next();
    EXPECT_TRUE(second.starts_with("<110>")) << second;
    EXPECT_TRUE(second.ends_with(std::string(16384, 'x') + "\"]")) << "a long line is not cut";
}

TEST_F(AuditTest, ASystemsLogThatIsRestartedIsFoundAgainAndToldWhatIsMissing)
{
    LogReceiver log;
    std::string error;
    ASSERT_TRUE(engine::open_audit("syslog:" + log.path(), &error)) << error;
    engine::audit(engine::Severity::Notice, "FIRST", {});
    EXPECT_NE(log.next().find(" FIRST ["), std::string::npos);
    log.close_socket();
    testing::internal::CaptureStderr();
    for (int i = 0; i < 3; ++i) {
        engine::audit(engine::Severity::Notice, "LOST", {});
        engine::flush_audit();
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "epon: audit " + log.path() + ": No such file or directory; records are lost\n")
        << "once";
    log.listen();
    engine::audit(engine::Severity::Notice, "SECOND", {});
    EXPECT_NE(log.next().find(" DROPPED [console@32473 records=\"3\"]"), std::string::npos);
    EXPECT_NE(log.next().find(" SECOND ["), std::string::npos);
}

TEST_F(AuditTest, RefusesALogThatNobodyListensTo)
{
    std::string error;
    EXPECT_FALSE(engine::open_audit("syslog:/no/such/log", &error));
    EXPECT_EQ(error, "audit /no/such/log: No such file or directory");
    EXPECT_FALSE(engine::open_audit("syslog:/" + std::string(200, 'x'), &error));
    EXPECT_EQ(error, "audit /" + std::string(200, 'x') + ": File name too long");
}

// A limit of the file's size stands for a full disk: a part of a line is written, then nothing.
TEST_F(AuditTest, AFullDiskGluesNoLinesTogether)
{
    open();
    engine::audit(engine::Severity::Notice, "FIRST", {});
    std::size_t line = written().size();
    rlimit usual{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &usual), 0);
    rlimit full = usual;
    full.rlim_cur = line + line / 2;
    auto* outer = signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &full), 0);
    testing::internal::CaptureStderr();
    for (int i = 0; i < 2; ++i)
        engine::audit(engine::Severity::Notice, "SECOND", {});
    engine::flush_audit();
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &usual), 0);
    signal(SIGXFSZ, outer);
    EXPECT_NE(testing::internal::GetCapturedStderr().find(": File too large; records are lost\n"), std::string::npos);
    engine::audit(engine::Severity::Notice, "THIRD", {});
    std::string all = written();
    EXPECT_EQ(std::count(all.begin(), all.end(), '\n'), 4) << all;
    EXPECT_TRUE(std::regex_search(all, std::regex("\n<108>1 [^\n]* DROPPED \\[console@32473 records=\"2\"\\]\n"
                                                  "<109>1 [^\n]* THIRD \\[console@32473\\]\n$")))
        << all;
}

// A pipe that nobody reads stands for a disk that hangs.
TEST_F(AuditTest, NobodyWaitsForASlowFileAndWhatIsLostIsCounted)
{
    std::string pipe_path = file.path() + ".pipe";
    ASSERT_EQ(mkfifo(pipe_path.c_str(), 0600), 0);
    int reader = ::open(pipe_path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    std::string error;
    ASSERT_TRUE(engine::open_audit(pipe_path, &error)) << error;
    std::uint64_t before = engine::audit_dropped();
    std::string text(1000, 'x');
    constexpr int RECORDS = 3000; // more than the pipe and the queue hold
    auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < RECORDS; ++i)
        engine::audit(engine::Severity::Notice, "EVENT", {{"text", text}});
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
    std::uint64_t lost = engine::audit_dropped() - before;
    EXPECT_GT(lost, 500U);
    EXPECT_LT(lost, 3000U);

    std::string all = read_until(reader, "records=\"" + std::to_string(lost) + "\"]\n");
    std::size_t events = 0;
    for (std::size_t at = 0; (at = all.find(" EVENT [", at)) != std::string::npos; ++at)
        ++events;
    EXPECT_EQ(events, RECORDS - lost) << "what was not lost is there";
    close(reader);
    unlink(pipe_path.c_str());
}
