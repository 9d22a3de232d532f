// SPDX-License-Identifier: Apache-2.0
// What is kept of a command: in the history, in the audit record, in the counters. Secrets are kept nowhere.
#include <fstream>
#include <iterator>

#include "engine/engine_fixture.h"
#include "engine/passwords.h"
#include "host/engine/audit.h"
#include "host/engine/nodes.h"

namespace {

class AccountingTest : public ::testing::Test {
  protected:
    AccountingTest()
    {
        install_test_nodes();
        engine::set_host_name("LAB");
        static constexpr engine::SecretWord words[] = {{"say"}, {"unit", 2}};
        engine::set_secret_words(words);
        std::string error;
        EXPECT_TRUE(engine::open_audit(file.path(), &error)) << error;
        session = engine::open_memory_session();
        run("enable");
    }
    ~AccountingTest() override
    {
        engine::close_session(session);
        engine::set_secret_words({});
        std::string error;
        engine::open_audit("", &error);
    }

    std::string run(std::string_view line)
    {
        engine::execute(session, line);
        return engine::take_output(session);
    }

    // The last line of the record from "at" to "result".
    std::string recorded() const
    {
        engine::flush_audit();
        std::ifstream record(file.path());
        std::string all{std::istreambuf_iterator<char>(record), {}};
        std::size_t at = all.rfind(" at=\""), end = all.rfind(" us=\"");
        return at < end && end < all.size() ? all.substr(at + 1, end - at - 1) : all;
    }

    PrivateFile file{""};
    vty* session;
};

} // namespace

TEST_F(AccountingTest, ACommandIsRecordedInFull)
{
    run("  max-r  5 ");
    EXPECT_EQ(recorded(), "at=\"LAB#\" command=\"max-rtt 5\" status=\"done\" result=\"0\"");
    run("fail");
    EXPECT_EQ(recorded(), "at=\"LAB#\" command=\"fail\" status=\"failed\" result=\"-1007\"");
    run("max 5");
    EXPECT_EQ(recorded(), "at=\"LAB#\" command=\"max 5\" status=\"ambiguous\" result=\"0\"");
    run("max-rtt");
    EXPECT_EQ(recorded(), "at=\"LAB#\" command=\"max-rtt\" status=\"incomplete\" result=\"0\"");
    run("zzz \"]\\");
    EXPECT_EQ(recorded(), "at=\"LAB#\" command=\"zzz \\\"\\]\\\\\" status=\"unknown\" result=\"0\"");
    run("list | include max | count");
    EXPECT_EQ(recorded(), "at=\"LAB#\" command=\"list | include max | count\" status=\"done\" result=\"0\"");
    run("unit 3");
    EXPECT_EQ(recorded(), "at=\"LAB#\" command=\"unit 3\" status=\"done\" result=\"0\"") << "where it was typed";
    run("craft");
    run("reboot now");
    EXPECT_EQ(recorded(), "at=\"LAB(OLT3 FW_CRAFT)%x%#\" command=\"reboot now\" status=\"failed\" result=\"7\"");
}

// Many handlers return 0 after they said why they refuse.
TEST_F(AccountingTest, WhatSaysThatItRefusesIsNotDone)
{
    engine::set_refusal_check([](std::string_view line) { return line == "no such unit"; });
    constexpr std::string_view REFUSED = "status=\"refused\" result=\"0\"";
    struct Case {
        const char* printed[3];
        bool refuses;
    };
    const Case cases[] = {
        {{"no such unit\r\n"}, true},
        {{"one\r\nno such ", "unit", "\r\ntwo\r\n"}, true},
        {{"% Wrong.\r\n"}, true},
        {{"no such unit"}, true}, // and no line end
        {{"failed\r\n", "OLT not exist (error code : -1003)\r\n"}, true},
        {{"no such unit, said he\r\n"}, false},
        {{"there is no such unit\r\n"}, false},
        {{"100 % of it\r\n"}, false},
        {{"(error code : x)\r\n"}, false},
    };
    static const Case* at;
    call_hook = [](vty* to) {
        for (const char* piece : at->printed)
            if (piece != nullptr) print_to(to, "%s", piece);
    };
    for (const Case& one : cases) {
        at = &one;
        run("clear console statistics");
        for (const char* line : {"call", "call | count"}) {
            run(line);
            EXPECT_EQ(recorded().find(REFUSED) != std::string::npos, one.refuses) << one.printed[0] << recorded();
        }
        std::string failed = one.refuses ? "2" : "0";
        EXPECT_NE(run("show console statistics").find("Failed commands                 : " + failed + "\r\n"),
                  std::string::npos)
            << one.printed[0];
    }
    run("max-rtt 5");
    EXPECT_EQ(recorded(), "at=\"LAB#\" command=\"max-rtt 5\" status=\"done\" result=\"0\"") << "the next one is not";
    engine::set_refusal_check(nullptr);
    call_hook = {};
}

TEST_F(AccountingTest, SecretsAreReplaced)
{
    EXPECT_EQ(run("say geheim"), "say geheim:1:geheim\r\n") << "the command gets it";
    EXPECT_EQ(recorded(), "at=\"LAB#\" command=\"say ***\" status=\"done\" result=\"0\"");
    run("sa geheim");
    EXPECT_EQ(recorded(), "at=\"LAB#\" command=\"say ***\" status=\"done\" result=\"0\"");
    run("sa geheim more");
    EXPECT_EQ(recorded(), "at=\"LAB#\" command=\"sa *** more\" status=\"unknown\" result=\"0\"");
    run("zzz say geheim");
    EXPECT_EQ(recorded(), "at=\"LAB#\" command=\"zzz say ***\" status=\"unknown\" result=\"0\"");
    run("unit 3 geheim x");
    EXPECT_EQ(recorded(), "at=\"LAB#\" command=\"unit 3 *** x\" status=\"unknown\" result=\"0\"") << "two words away";
    run("unit 3");
    run("craft");
    run("say geheim");
    EXPECT_EQ(recorded(), "at=\"LAB(OLT3 FW_CRAFT)%x%#\" command=\"say ***\" status=\"failed\" result=\"7\"");
    run("exit");
    std::string history = run("show history");
    EXPECT_EQ(history.find("geheim"), std::string::npos) << history;
    EXPECT_NE(history.find("  sa ***\r\n"), std::string::npos) << history;
}

TEST_F(AccountingTest, WordsThatOnlyLookLikeSecretOnesStay)
{
    run("max-rtt 5");
    run("max-rtt s");
    EXPECT_EQ(recorded(), "at=\"LAB#\" command=\"max-rtt s\" status=\"unknown\" result=\"0\"");
    run("show history");
    EXPECT_EQ(recorded(), "at=\"LAB#\" command=\"show history\" status=\"done\" result=\"0\"");
}

TEST_F(AccountingTest, CommandsAreCounted)
{
    run("clear console statistics");
    for (int i = 0; i < 3; ++i)
        run("max-rtt 5");
    run("fail");
    run("zzz");
    std::string all = run("show console statistics");
    EXPECT_NE(all.find("Commands                        : 5\r\n"), std::string::npos) << all;
    EXPECT_NE(all.find("Failed commands                 : 1\r\n"), std::string::npos) << all;
    EXPECT_NE(all.find("Lines that were no command      : 1\r\n"), std::string::npos) << all;
    std::string commands = run("show console statistics commands");
    EXPECT_NE(commands.find("         3          0 "), std::string::npos) << commands;
    EXPECT_NE(commands.find("  max-rtt <0-65534>\r\n"), std::string::npos) << commands;
    EXPECT_NE(commands.find("         1          1 "), std::string::npos) << commands;
    EXPECT_LT(commands.find("max-rtt"), commands.find("  fail\r\n")) << "the most used first";
    run("clear console statistics");
    EXPECT_EQ(run("show console statistics commands").find("max-rtt"), std::string::npos);
}
