// SPDX-License-Identifier: Apache-2.0
// Sessions without a connection: commands, errors, prompts, nodes, events.
#include <thread>

#include "engine/engine_fixture.h"

#include "host/engine/event_buffer.h"

using engine::MatchStatus;
using engine::Outcome;

namespace {

class SessionTest : public ::testing::Test {
  protected:
    SessionTest()
    {
        install_test_nodes();
        session = engine::open_memory_session();
        take_raw_journal();
    }
    ~SessionTest() override
    {
        engine::close_session(session);
        RBX_vty_set_multi_tasking_mode(1);
    }

    std::string type(std::string_view line)
    {
        outcome = engine::execute(session, line);
        return engine::take_output(session);
    }

    vty* session;
    Outcome outcome{MatchStatus::Empty};
};

void flush(vty* session)
{
    thread work{};
    work.func = RBX_vty_flush;
    work.arg = session;
    RBX_thread_call(&work);
}

} // namespace

TEST_F(SessionTest, HandsOverTheFullCommandLine)
{
    type("ena");
    EXPECT_EQ(session->node, ENABLE_NODE);
    EXPECT_EQ(type("sa   hello"), "say hello:1:hello\r\n");
    EXPECT_EQ(outcome.status, MatchStatus::Matched);
    EXPECT_STREQ(session->buf, "");
    EXPECT_EQ(type("\tmax-r 12 "), "max-rtt 12:1:12\r\n");
}

TEST_F(SessionTest, ReportsTheHandlersResultAndPrintsNothing)
{
    type("enable");
    EXPECT_EQ(type("fail"), "");
    EXPECT_EQ(outcome.status, MatchStatus::Matched);
    EXPECT_EQ(outcome.result, -1007);
}

TEST_F(SessionTest, SaysWhatIsWrongInOneLine)
{
    type("enable");
    struct {
        const char* line;
        const char* output;
        MatchStatus status;
    } const cases[] = {
        {"", "", MatchStatus::Empty},
        {"  \t ", "", MatchStatus::Empty},
        {"nonsense", "^\r\n% Unknown command.\r\n", MatchStatus::Unknown},
        {"  say a b", "        ^\r\n% Unknown word here: nothing can follow.\r\n", MatchStatus::Unknown},
        {"max-rtt 65535", "        ^\r\n% Unknown word here: not in the range 0-65534.\r\n", MatchStatus::Unknown},
        {"say", "% Incomplete command.\r\n", MatchStatus::Incomplete},
        {"max 5", "% Ambiguous command: max-rtt, max-size.\r\n", MatchStatus::Ambiguous},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(type(row.line), row.output) << row.line;
        EXPECT_EQ(outcome.status, row.status) << row.line;
    }
}

TEST_F(SessionTest, LeavesTheCaretOutWhereTheLineWraps)
{
    type("enable");
    EXPECT_EQ(type("say " + std::string(70, 'a') + " bc"),
              std::string(75, ' ') + "^\r\n% Unknown word here: nothing can follow.\r\n");
    EXPECT_EQ(type("say " + std::string(75, 'a') + " bc"), "% Unknown word here: nothing can follow.\r\n");
}

TEST_F(SessionTest, RefusesLongLines)
{
    type("enable");
    std::string word(16384 - 4, 'w');
    std::string output = type("say " + word);
    EXPECT_EQ(output, "say " + word + ":1:" + word + "\r\n");
    EXPECT_EQ(type("say " + word + "w"), "% Line too long (more than 16384 characters).\r\n");
}

TEST_F(SessionTest, EndsLinesByItsType)
{
    vty* stream = engine::open_memory_session(1);
    engine::execute(stream, "nonsense");
    EXPECT_EQ(engine::take_output(stream), "^\n% Unknown command.\n");
    EXPECT_EQ(RBX_vty_shell(stream), 1);
    EXPECT_EQ(RBX_vty_shell(session), 0);
    engine::close_session(stream);
}

TEST_F(SessionTest, PromptsAreData)
{
    std::string name = engine::prompt(session);
    ASSERT_TRUE(name.ends_with("> "));
    name.resize(name.size() - 2);
    type("enable");
    EXPECT_EQ(engine::prompt(session), name + "# ");
    type("unit 7");
    EXPECT_EQ(engine::prompt(session), name + "(OLT7)# ");
    type("onu 12");
    EXPECT_EQ(engine::prompt(session), name + "(OLT7 ONU12)# ");
    type("exit");
    type("craft");
    EXPECT_EQ(engine::prompt(session), name + "(OLT7 FW_CRAFT)%x%# ");
    session->node = 8;
    EXPECT_EQ(engine::prompt(session), name + "> ");
}

TEST_F(SessionTest, WalksTheNodes)
{
    struct {
        const char* line;
        int node;
    } const steps[] = {
        {"end", VIEW_NODE},    {"enable", ENABLE_NODE}, {"end", ENABLE_NODE},  {"configure terminal", CONFIG_NODE},
        {"exit", ENABLE_NODE}, {"unit 3", OLT_NODE},    {"exit", CONFIG_NODE}, {"end", ENABLE_NODE},
        {"unit 3", OLT_NODE},  {"onu 1", ONU_NODE},     {"exit", OLT_NODE},    {"onu 1", ONU_NODE},
        {"end", CONFIG_NODE},  {"end", ENABLE_NODE},    {"disable", VIEW_NODE}};
    for (const auto& step : steps) {
        type(step.line);
        EXPECT_EQ(session->node, step.node) << step.line;
    }
}

TEST_F(SessionTest, ClosesAtTheTop)
{
    for (const char* words : {"exit", "quit", "logout", "enable;exit", "enable;unit 1;quit"}) {
        vty* other = engine::open_memory_session();
        std::string_view rest = words;
        for (std::size_t end; (end = rest.find(';')) != std::string_view::npos; rest.remove_prefix(end + 1))
            engine::execute(other, rest.substr(0, end));
        engine::execute(other, rest);
        EXPECT_EQ(engine::execute(other, "help").status, MatchStatus::Empty) << words;
        EXPECT_EQ(engine::take_output(other), "") << words;
        engine::close_session(other);
    }
}

TEST_F(SessionTest, HandsRawLinesToTheHost)
{
    type("enable");
    type("unit 1");
    type("craft");
    EXPECT_EQ(type("show  version ?"), "sent show  version ?\r\n");
    EXPECT_EQ(outcome.result, 7);
    EXPECT_EQ(type(""), "sent \r\n");
    EXPECT_EQ(type("help"), "sent help\r\n");
    EXPECT_EQ(type("exit now"), "sent exit now\r\n");
    EXPECT_EQ(session->event_notify, 1);
    EXPECT_EQ(type(" exit "), "");
    EXPECT_EQ(session->node, OLT_NODE);
    EXPECT_EQ(session->event_notify, 0) << "as it was before";
    EXPECT_EQ(take_raw_journal(), "line show  version ?\nline \nline help\nline exit now\nleft node 21\n");

    type("craft");
    type("end");
    EXPECT_EQ(session->node, CONFIG_NODE);
    EXPECT_EQ(take_raw_journal(), "left node 21\n");
}

TEST_F(SessionTest, CallsTheLeaveHookOnceWhenItCloses)
{
    for (const char* word : {"quit", "logout", ""}) {
        vty* other = engine::open_memory_session();
        for (const char* line : {"enable", "unit 1", "craft"})
            engine::execute(other, line);
        if (*word != '\0') {
            engine::execute(other, word);
            EXPECT_EQ(take_raw_journal(), "left node 21\n");
        }
        engine::close_session(other);
        EXPECT_EQ(take_raw_journal(), *word != '\0' ? "" : "left node 21\n");
    }
}

TEST_F(SessionTest, LetsOnlyOneConfigureIfAskedTo)
{
    uint8_t mode = 9;
    RBX_vty_get_multi_tasking_mode(&mode);
    EXPECT_EQ(mode, 1);
    vty* other = engine::open_memory_session();
    for (const char* line : {"enable", "unit 1", "onu 1"})
        engine::execute(other, line);
    type("enable");
    type("configure terminal");
    EXPECT_EQ(session->node, CONFIG_NODE);
    type("exit");

    RBX_vty_set_multi_tasking_mode(0);
    RBX_vty_get_multi_tasking_mode(&mode);
    EXPECT_EQ(mode, 0);
    std::string refusal = type("configure terminal");
    EXPECT_TRUE(refusal.starts_with("% Session ")) << refusal;
    EXPECT_TRUE(refusal.ends_with(" is configuring; only one session may at a time.\r\n")) << refusal;
    EXPECT_EQ(session->node, ENABLE_NODE);
    engine::execute(other, "end");
    EXPECT_EQ(type("configure terminal"), refusal); // still configuring
    engine::execute(other, "end");
    EXPECT_EQ(type("configure terminal"), "");
    EXPECT_EQ(session->node, CONFIG_NODE);
    engine::close_session(other);
}

TEST_F(SessionTest, TellsWhereACommandBelongs)
{
    const std::string of_a_unit = "% Unknown command here: it belongs to the context of a unit.\r\n";
    auto last_line = [this](const char* line) {
        std::string text = type(line);
        return text.substr(text.find('%'));
    };
    session->node = CONFIG_NODE;
    EXPECT_EQ(last_line("onu 1"), of_a_unit);
    EXPECT_EQ(last_line("on"), of_a_unit) << "an unfinished one, too";
    EXPECT_EQ(last_line("onu 1 more"), "% Unknown command.\r\n");
    EXPECT_EQ(last_line("enable"), "% Unknown command.\r\n") << "the view node has no title here";
    session->node = ONU_NODE;
    EXPECT_EQ(last_line("onu 1"), of_a_unit);
}

TEST_F(SessionTest, ListsCommandsHistoryAndSessions)
{
    std::string list = type("list");
    EXPECT_EQ(list,
              "enable\r\nexit\r\nhelp\r\nlist\r\nlogout\r\nno terminal length\r\nno terminal width\r\nquit\r\nshow "
              "history\r\nshow terminal\r\nterminal length <0-512>\r\nterminal width <8-1000>\r\nwho\r\n");
    type("nonsense");
    std::string history = type("show history");
    EXPECT_EQ(history, "   1  list\r\n   2  nonsense\r\n   3  show history\r\n");
    std::string sessions = type("who");
    EXPECT_NE(sessions.find("*"), std::string::npos);
    EXPECT_NE(sessions.find("memory"), std::string::npos);
    EXPECT_NE(type("help").find("configure terminal"), std::string::npos);
}

TEST_F(SessionTest, EveryCommandOfItsOwnHasHelp)
{
    int count = 0;
    engine::for_each_element(engine::Origin::Engine, [&](int, const cmd_element& command) {
        ++count;
        std::string_view help = command.doc;
        EXPECT_EQ(std::count(help.begin(), help.end(), '\n'), command.cmdsize) << command.string;
    });
    EXPECT_GT(count, 40);
}

TEST_F(SessionTest, EventsWaitForTheEndOfTheCommand)
{
    call_hook = [](vty* own) {
        std::thread([own] {
            thread work{};
            print_event("event one");
            work.func = RBX_vty_flush;
            work.arg = own;
            RBX_thread_call(&work);
            print_event("event two");
        }).join();
        RBX_vty_flush(std::array<thread, 1>{thread{nullptr, own, {0}, nullptr}}.data());
        print_event("raised by the command itself");
    };
    type("enable");
    type("notify");
    EXPECT_EQ(type("call"), "raised by the command itself\r\nevent one\r\nevent two\r\n");
    print_event("from the test's thread");
    std::thread([] { print_event("idle"); }).join();
    EXPECT_EQ(engine::take_output(session), "from the test's thread\r\nidle\r\n");
}

TEST_F(SessionTest, CountsEventsThatDoNotFit)
{
    type("enable");
    type("notify");
    const std::string line(1022, 'e');
    std::thread([&] {
        for (std::size_t i = 0; i < engine::EVENT_LIMIT / 1024 + 3; ++i)
            print_event(line);
    }).join();
    std::string output = engine::take_output(session);
    EXPECT_EQ(output.size(), engine::EVENT_LIMIT + std::string("[3 event lines dropped]\r\n").size());
    EXPECT_TRUE(output.ends_with("e\r\n[3 event lines dropped]\r\n"));
}

TEST_F(SessionTest, ClosedSessionsSwallowOutput)
{
    vty* other = engine::open_memory_session();
    engine::execute(other, "enable");
    engine::execute(other, "notify");
    engine::close_session(other);
    flush(other);
    EXPECT_EQ(other->event_notify, 0);
    for (unsigned i = 0; i < vtyvec->count; ++i)
        EXPECT_NE(vtyvec->sessions[i], other);
    call_hook = [](vty*) {};
}

TEST_F(SessionTest, PrintsLongTexts)
{
    for (std::size_t length : {1022, 1023, 1024, 100000}) {
        call_hook = [length](vty* own) {
            EXPECT_EQ(print_to(own, "%s", std::string(length, 'x').c_str()), static_cast<int>(length));
        };
        type("enable");
        EXPECT_EQ(type("call"), std::string(length, 'x'));
    }
}

TEST_F(SessionTest, PoolHasAnEnd)
{
    std::vector<vty*> all;
    while (vty* one = engine::open_memory_session())
        all.push_back(one);
    EXPECT_EQ(all.size(), 63U);
    for (vty* one : all)
        engine::close_session(one);
    vty* again = engine::open_memory_session();
    EXPECT_NE(again, nullptr);
    engine::close_session(again);
}

TEST(Text, JoinsAndCopies)
{
    char a[] = "one", b[] = "two", c[] = "";
    char* words[] = {a, b, c};
    auto joined = [&](int count, int shift) {
        char* text = RBX_argv_concat(words, count, shift);
        std::string copy = text == nullptr ? "(null)" : text;
        RBX_zfree(text);
        return copy;
    };
    EXPECT_EQ(joined(3, 0), "one two ");
    EXPECT_EQ(joined(2, 0), "one two");
    EXPECT_EQ(joined(2, 1), "two");
    EXPECT_EQ(joined(2, 2), "(null)");
    EXPECT_EQ(joined(0, 0), "(null)");
    char* copy = RBX_zstrdup("text");
    EXPECT_STREQ(copy, "text");
    RBX_zfree(copy);
    RBX_zfree(nullptr);
}
