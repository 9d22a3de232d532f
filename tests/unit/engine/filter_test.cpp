// SPDX-License-Identifier: Apache-2.0
// What stands behind "|": which lines come through, in which order, and what is refused.
#include "host/engine/filter.h"

#include <chrono>
#include <fstream>
#include <thread>

#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "engine/engine_fixture.h"

#include "host/engine/save_file.h"

using engine::FilterChain;

namespace {

std::vector<std::string_view> filters_of(std::string_view line)
{
    return engine::split_filters(line).filters;
}

struct Filtered {
    std::string text; // lines ended by "\n"; the error when there is no chain
    std::string_view fault;
    engine::FilterWishes wishes;
};

Filtered filter(std::string_view filters, std::string_view answer, int result = 0, std::size_t piece = 1 << 20)
{
    Filtered out;
    std::string error;
    auto take = [&](std::string_view line) { out.text.append(line).append("\n"); };
    auto chain = FilterChain::make(filters_of(filters), take, &out.fault, &error);
    if (!chain) {
        out.text = error;
        return out;
    }
    for (; !answer.empty(); answer.remove_prefix(std::min(piece, answer.size())))
        chain->write(answer.substr(0, piece));
    chain->end(result);
    out.wishes = std::move(chain->wishes);
    return out;
}

nlohmann::json json_of(std::string_view answer, int result = 0)
{
    return nlohmann::json::parse(filter("x | json", answer, result).text);
}

constexpr std::string_view OLT = "OLT_id: 0 \r\nfec: off \r\nmax rtt: 12500 \r\n";

constexpr std::string_view TREE = "interface 1\r\n"
                                  "  speed 10\r\n"
                                  "    duplex full\r\n"
                                  "  up\r\n"
                                  "interface 2\r\n"
                                  "  speed 20\r\n"
                                  "end\r\n";

constexpr std::string_view RECORDS = "OLT_id: 0 \r\nstate: up \r\nOLT_id: 1 \r\nstate: down \r\n  since: noon\r\n"
                                     "OLT_id: 2 \r\nstate: up \r\n";

} // namespace

TEST(Filter, BeginsWithABarBetweenBlanks)
{
    struct {
        const char* line;
        const char* command;
        std::vector<std::string_view> filters;
    } const cases[] = {
        {"show x", "show x", {}},
        {"show x | count", "show x ", {" count"}},
        {"show x|count", "show x|count", {}},
        {"show x |count", "show x |count", {}},
        {"show x| count", "show x| count", {}},
        {"show x\t|\tcount", "show x\t", {"\tcount"}},
        {"a | include b|c | count", "a ", {" include b|c ", " count"}},
        {"a || b", "a || b", {}},
        {"|", "", {""}},
        {"a | |", "a ", {" ", ""}},
    };
    for (const auto& row : cases) {
        engine::FilteredLine split = engine::split_filters(row.line);
        EXPECT_EQ(split.command, row.command) << row.line;
        EXPECT_EQ(split.filters, row.filters) << row.line;
    }
}

TEST(Filter, PicksLines)
{
    struct {
        const char* filters;
        std::string_view answer;
        const char* lines;
    } const cases[] = {
        {"x | include rtt", OLT, "max rtt: 12500 \n"},
        {"x | include max rtt", OLT, "max rtt: 12500 \n"},
        {"x | include ^(OLT|fec)", OLT, "OLT_id: 0 \nfec: off \n"},
        {"x | include (", "", nullptr},
        {"x | exclude o.f", OLT, "OLT_id: 0 \nmax rtt: 12500 \n"},
        {"x | begin fec", OLT, "fec: off \nmax rtt: 12500 \n"},
        {"x | begin nothing", OLT, ""},
        {"x | inc [0-9]+ | exc OLT", OLT, "max rtt: 12500 \n"},
        {"x | no-more", OLT, "OLT_id: 0 \nfec: off \nmax rtt: 12500 \n"},
        {"x | count", OLT, "3 lines\n"},
        {"x | include fec | count", OLT, "1 line\n"},
        {"x | count", "", "0 lines\n"},
        {"x | count | include 3", OLT, "3 lines\n"},
        {"x | include FEC", OLT, ""},
        {"x | include half", "half a line", "half a line\n"},
        {"x | section interface 1", TREE, "interface 1\n  speed 10\n    duplex full\n  up\n"},
        {"x | section speed", TREE, "  speed 10\n    duplex full\n  speed 20\n"},
        {"x | section end", TREE, "end\n"},
        {"x | section down", RECORDS, "OLT_id: 1 \nstate: down \n  since: noon\n"},
        {"x | section OLT_id: 2", RECORDS, "OLT_id: 2 \nstate: up \n"},
        {"x | section fec", OLT, "fec: off \n"},                     // one record: sections go by indentation
        {"x | section ^b", "a\n  n: 1\nb\n  n: 2\n", "b\n  n: 2\n"}, // indented names begin no record
    };
    for (const auto& row : cases) {
        if (row.lines == nullptr) continue;
        for (std::size_t piece : {1000, 1})
            EXPECT_EQ(filter(row.filters, row.answer, 0, piece).text, row.lines) << row.filters;
    }
}

TEST(Filter, NeverTakesAFailureAway)
{
    constexpr std::string_view failed = "% Unknown something.\r\nCommand return error.\r\n"
                                        "OLT not exist (error code : -1003)\r\nfine\r\n";
    engine::set_refusal_check([](std::string_view line) { return line == "Command return error."; });
    const std::string failures = "% Unknown something.\nCommand return error.\nOLT not exist (error code : -1003)\n";
    for (const char* filters : {"x | include zzz", "x | exclude .", "x | begin zzz", "x | section zzz"})
        EXPECT_EQ(filter(filters, failed).text, failures) << filters;
    EXPECT_EQ(filter("x | count", failed).text, failures + "1 line\n");
    nlohmann::json json = json_of(failed, -1003);
    EXPECT_EQ(json["error"], nlohmann::json({{"message", "Unknown something."}})) << "the first one";
    json = json_of("Command return error.\r\nOLT not exist (error code : -1003)\r\n", -1003);
    EXPECT_EQ(json, (nlohmann::json{{"records", nlohmann::json::array()},
                                    {"lines", nlohmann::json::array()},
                                    {"error", {{"message", "OLT not exist"}, {"code", -1003}}}}));
    engine::set_refusal_check(nullptr);
}

TEST(Filter, MakesADocumentOfOneShape)
{
    using nlohmann::json;
    EXPECT_EQ(filter("x | json", "").text, "{\n  \"records\": [],\n  \"lines\": []\n}\n");
    EXPECT_EQ(json_of(OLT),
              (json{{"records", {{{"OLT_id", "0"}, {"fec", "off"}, {"max rtt", "12500"}}}}, {"lines", json::array()}}));
    EXPECT_EQ(json_of(RECORDS)["records"].size(), 3U);
    EXPECT_EQ(json_of(RECORDS)["records"][1], (json{{"OLT_id", "1"}, {"state", "down"}, {"since", "noon"}}));
    EXPECT_EQ(json_of("a: 1\r\nb: 2\r\nb: 3\r\nb: \r\n")["records"], (json{{{"a", "1"}, {"b", {"2", "3", ""}}}}));
    EXPECT_EQ(json_of("at 12:30:00\r\n\r\n  plain  \r\nmac: 00:11\r\n"),
              (json{{"records", {{{"mac", "00:11"}}}}, {"lines", {"at 12:30:00", "  plain"}}}));
    EXPECT_EQ(json_of("Not possible.\r\n", -4)["error"], (json{{"message", "The command failed."}, {"code", -4}}));
    EXPECT_EQ(json_of("name: \xff\"\\\x01\r\n")["records"][0]["name"], "\xef\xbf\xbd\"\\\x01");
    // Members keep the order of the lines.
    EXPECT_EQ(filter("x | json", "z: 1\r\na: 2\r\n").text,
              "{\n  \"records\": [\n    {\n      \"z\": \"1\",\n      \"a\": \"2\"\n    }\n  ],\n  \"lines\": []\n}\n");
}

TEST(Filter, HoldsABoundedPartOfAnAnswer)
{
    auto lines_of = [](char letter) {
        std::string text;
        for (int i = 0; i < 3000; ++i)
            text += "a: " + std::string(1000, letter) + "\r\n";
        return text;
    };
    std::string answer = lines_of('x');
    nlohmann::json json = json_of(answer);
    EXPECT_LT(json["records"].size(), 1100U);
    EXPECT_EQ(json["records"].size() + json["lines_left_out"].get<std::size_t>(), 3000U);
    json = json_of(lines_of('\x01')); // "\u0001": six times as long
    EXPECT_LT(json["records"].size(), 1100U / 6);
    EXPECT_EQ(json["records"].size() + json["lines_left_out"].get<std::size_t>(), 3000U);
    EXPECT_NE(filter("x | section b", answer).text.find("% The answer is too long for this filter: "),
              std::string::npos);
    // An endless line comes in pieces.
    std::string endless(200000, 'x');
    EXPECT_EQ(filter("x | count", endless, 0, 1000).text, "4 lines\n");
}

TEST(Filter, RefusesWhatIsWrong)
{
    struct {
        const char* filters;
        const char* error;
        const char* fault;
    } const cases[] = {
        {"x |", "Filter expected: one of begin, count, exclude, include, json, no-more, section", ""},
        {"x | | count", "Filter expected: one of begin, count, exclude, include, json, no-more, section", ""},
        {"x | grep y", "Filter expected: one of begin, count, exclude, include, json, no-more, section", "grep"},
        {"x | include", "include needs a regular expression", "include"},
        {"x | count 5", "count takes no argument", "5"},
        {"x | include a(b", "Wrong regular expression: missing ): a(b", "a(b"},
        {"x | include (a)\\1", "Wrong regular expression: invalid escape sequence: \\1", "(a)\\1"},
        {"x | save y", "The host has no directory for saved answers", "y"},
        {"x | count | count | count | count | count | count | count | count | json", "More than 8 filters", "json"},
    };
    for (const auto& row : cases) {
        Filtered refused = filter(row.filters, "line\r\n");
        EXPECT_EQ(refused.text, row.error) << row.filters;
        EXPECT_EQ(refused.fault, row.fault) << row.filters;
    }
    EXPECT_EQ(filter("x | include " + std::string(257, 'a'), "").text,
              "Wrong regular expression: more than 256 characters");
}

TEST(Filter, HostileExpressionsEndSoon)
{
    std::string line(60000, 'a');
    auto start = std::chrono::steady_clock::now();
    for (const char* expression : {"(a*)*b", "(a|a)*b", "(a+)+$b", "(.*)*(.*)*(.*)*x", "((a{0,30}){0,30})*b",
                                   "(x+x+)+y", "^(([a-z])+.)+[A-Z]([a-z])+$", "(((((a*)*)*)*)*)*b"})
        EXPECT_EQ(filter(std::string("x | include ") + expression, line + "\r\n").text, "") << expression;
    for (const char* expression : {"((a{1000}){1000}){1000}", "(((a{100}){100}){100}){100}"})
        EXPECT_TRUE(filter(std::string("x | include ") + expression, line).text.starts_with("Wrong")) << expression;
    EXPECT_FALSE(filter("x | include " + std::string(256, '('), line).text.empty());
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20)); // a sanitizer's build included
}

TEST(Filter, OffersItsWords)
{
    std::vector<engine::Candidate> all = engine::filter_candidates({}, "");
    ASSERT_EQ(all.size(), 7U) << "without \"save\"";
    for (const engine::Candidate& entry : all)
        EXPECT_FALSE(entry.help.empty()) << entry.word;
    EXPECT_EQ(engine::filter_candidates({}, "in").at(0).word, "include");
    EXPECT_EQ(engine::filter_candidates({"include"}, "").at(0).word, "RE");
    EXPECT_EQ(engine::filter_candidates({"include", "x"}, "").at(1).word, "<cr>");
    EXPECT_EQ(engine::filter_candidates({"count"}, "").at(0).word, "<cr>");
    EXPECT_TRUE(engine::filter_candidates({"count", "x"}, "").empty());
    EXPECT_TRUE(engine::filter_candidates({"grep"}, "").empty());
}

// --- In a session -------------------------------------------------------------------------------------------------

namespace {

class FilteredSession : public ::testing::Test {
  protected:
    FilteredSession()
    {
        install_test_nodes();
        session = engine::open_memory_session();
        type("enable");
    }
    ~FilteredSession() override
    {
        engine::close_session(session);
    }
    std::string type(std::string_view line)
    {
        outcome = engine::execute(session, line);
        return engine::take_output(session);
    }

    vty* session;
    engine::Outcome outcome{engine::MatchStatus::Empty};
};

} // namespace

TEST_F(FilteredSession, FiltersEveryCommand)
{
    EXPECT_EQ(type("print 30 | include 0{5}[12]"),
              "line 000001 of a long answer that nobody may ever read to its end\r\n"
              "line 000002 of a long answer that nobody may ever read to its end\r\n");
    EXPECT_EQ(type("print 12 | count"), "12 lines\r\n");
    EXPECT_EQ(type("list | include ^who"), "who\r\n");
    EXPECT_EQ(type("say hi | include hi"), "say hi:1:hi\r\n") << "the command does not see the filter";
    EXPECT_EQ(type("say a|b"), "say a|b:1:a|b\r\n");
    EXPECT_EQ(type("say |"), "     ^\r\n% Filter expected: one of begin, count, exclude, include, json, no-more, "
                             "section.\r\n");
    EXPECT_EQ(type("exit | count"), "0 lines\r\n");
}

TEST_F(FilteredSession, RunsNothingWhenAFilterIsWrong)
{
    bool ran = false;
    call_hook = [&](vty*) { ran = true; };
    EXPECT_EQ(type("call | include ("), "               ^\r\n% Wrong regular expression: missing ): (.\r\n");
    EXPECT_FALSE(ran);
    EXPECT_EQ(outcome.status, engine::MatchStatus::Unknown);
    EXPECT_EQ(type(" | count"), " ^\r\n% There is no command before the filter.\r\n");
}

TEST_F(FilteredSession, ShowsErrorsAsTheyAre)
{
    EXPECT_EQ(type("nonsense | count"), "^\r\n% Unknown command.\r\n");
    EXPECT_EQ(type("nonsense | include x"), "^\r\n% Unknown command.\r\n");
    EXPECT_EQ(nlohmann::json::parse(type("nonsense | json"))["error"]["message"], "Unknown command.");
    EXPECT_EQ(nlohmann::json::parse(type("say | json"))["error"]["message"], "Incomplete command.");
    EXPECT_EQ(nlohmann::json::parse(type("fail | json"))["error"]["code"], -1007);
    EXPECT_EQ(outcome.result, -1007);
    EXPECT_EQ(type("say after"), "say after:1:after\r\n") << "the next line has no filter";
}

TEST_F(FilteredSession, SavesIntoNewFilesOnly)
{
    char folder_name[] = "/tmp/epon-engine-save-XXXXXX";
    const std::string folder = mkdtemp(folder_name);
    std::string error;
    ASSERT_TRUE(engine::set_save_directory(folder, &error)) << error;
    EXPECT_EQ(engine::filter_candidates({}, "sav").at(0).word, "save");

    EXPECT_EQ(type("print 3 | save answer.txt"), "Saved 3 lines in answer.txt.\r\n");
    std::ifstream file(folder + "/answer.txt");
    std::string text((std::istreambuf_iterator<char>(file)), {});
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 3);
    EXPECT_EQ(text.find('\r'), std::string::npos);
    struct stat status {};
    ASSERT_EQ(stat((folder + "/answer.txt").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);

    EXPECT_EQ(type("say x | save answer.txt"), "% Not saved in answer.txt: there is a file of that name.\r\n");
    ASSERT_EQ(symlink((folder + "/elsewhere").c_str(), (folder + "/link").c_str()), 0);
    EXPECT_EQ(type("say x | save link"), "% Not saved in link: there is a file of that name.\r\n");
    EXPECT_NE(access((folder + "/elsewhere").c_str(), F_OK), 0);
    EXPECT_EQ(type("say x | json | save x.json"), "Saved 6 lines in x.json.\r\n");
    EXPECT_EQ(type("print 30 | include 00000 | save part"), "Saved 10 lines in part.\r\n");
    for (const char* name : {"../x", "/tmp/x", "a/b", ".hidden", "-x", "..", "a b", "\xc3\xa4"})
        EXPECT_NE(type(std::string("say x | save ") + name).find("% Not a file name: "), std::string::npos) << name;
    EXPECT_NE(type("say x | save " + std::string(65, 'a')).find("% Not a file name: "), std::string::npos);
    EXPECT_NE(type("say x | save y | count").find("% Nothing can follow save.\r\n"), std::string::npos);
    EXPECT_EQ(type("nonsense | save none"), "^\r\n% Unknown command.\r\n");
    EXPECT_NE(access((folder + "/none").c_str(), F_OK), 0);
    std::string answer = type("print 30000 | save long");
    EXPECT_NE(answer.find("% The answer is too long to be saved: "), std::string::npos) << answer;
    ASSERT_EQ(stat((folder + "/long").c_str(), &status), 0);
    EXPECT_LE(status.st_size, static_cast<off_t>(engine::FILTER_HOLD));

    EXPECT_FALSE(engine::set_save_directory(folder + "/answer.txt", &error));
    EXPECT_EQ(error, "directory for saved answers " + folder + "/answer.txt: Not a directory");
    ASSERT_TRUE(engine::set_save_directory("", &error));
    EXPECT_NE(type("say x | save y").find("% The host has no directory for saved answers.\r\n"), std::string::npos);
    for (const char* name : {"answer.txt", "link", "x.json", "part", "long"})
        unlink((folder + "/" + name).c_str());
    rmdir(folder.c_str());
}

TEST_F(FilteredSession, SavesWhileTheOthersGoOn)
{
    char folder_name[] = "/tmp/epon-engine-save-XXXXXX";
    const std::string folder = mkdtemp(folder_name);
    std::string error;
    ConsoleServer server;
    ASSERT_TRUE(engine::set_save_directory(folder, &error)) << error; // preparing the server set none
    Client client;
    client.connect_tcp(server.port());
    client.send("enable\rprint 1000 | save big\rsay after\r");
    client.until("Saved 1000 lines in big.\r\nLAB# say after\r\nsay after:1:after\r\n");
    Client leaving; // what was sent before the end is still saved
    leaving.connect_tcp(server.port());
    leaving.send("enable\rprint 1000 | save other\r");
    leaving.half_close();
    EXPECT_NE(leaving.rest().find("Saved 1000 lines in other.\r\n"), std::string::npos);
    ASSERT_TRUE(engine::set_save_directory("", &error));
    EXPECT_EQ(unlink((folder + "/big").c_str()) + unlink((folder + "/other").c_str()), 0);
    rmdir(folder.c_str());
}

TEST_F(FilteredSession, LeavesRawLinesAlone)
{
    type("unit 1");
    type("craft");
    take_raw_journal();
    type("dump | count");
    EXPECT_EQ(take_raw_journal(), "line dump | count\n");
}

TEST_F(FilteredSession, KeepsEventsOutOfTheAnswer)
{
    type("notify");
    call_hook = [](vty* own) {
        print_to(own, "one\r\n");
        std::thread([] { print_event("event"); }).join();
        print_to(own, "two\r\n");
    };
    EXPECT_EQ(type("call | include two"), "two\r\nevent\r\n");
    EXPECT_EQ(type("call | count"), "2 lines\r\nevent\r\n");
}

TEST_F(FilteredSession, TakesRemarksForNothing)
{
    for (const char* line : {"! a remark", "# another", "   !", "#say x"})
        EXPECT_EQ(type(line), "") << line;
    EXPECT_EQ(outcome.status, engine::MatchStatus::Empty);
    EXPECT_EQ(type("say !x"), "say !x:1:!x\r\n");
    EXPECT_EQ(type("  say x  \t"), "say x:1:x\r\n");
    EXPECT_EQ(type("show history | count"), "4 lines\r\n") << "and no remarks";
}
