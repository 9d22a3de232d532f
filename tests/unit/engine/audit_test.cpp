// SPDX-License-Identifier: Apache-2.0
// The audit record: its lines, what they never hold, and that nobody waits for them.
#include "host/engine/audit.h"

#include <cerrno>
#include <fstream>
#include <iterator>
#include <regex>
#include <thread>

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
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
