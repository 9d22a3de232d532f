// SPDX-License-Identifier: Apache-2.0
// The "simulate" commands, typed on a session of the engine.
#include <algorithm>
#include <map>
#include <set>

#include <epon/engine.h>

#include "help_texts.h"
#include "host/engine/engine_host.h"
#include "host/simulate.h"
#include "network_fixture.h"

namespace {

using Lines = std::vector<std::string>;

// Nodes with nothing but the host's commands; the engine keeps them for the life of the process.
void install_once()
{
    static const bool is_installed = [] {
        static cmd_node nodes[] = {{VIEW_NODE, "%s> ", 0, nullptr, nullptr},
                                   {ENABLE_NODE, "%s# ", 0, nullptr, nullptr},
                                   {CONFIG_NODE, "%s(config)# ", 0, nullptr, nullptr},
                                   {OLT_NODE, "%s(OLT%d)# ", 0, nullptr, nullptr},
                                   {ONU_NODE, "%s(OLT%d ONU", 0, nullptr, nullptr}};
        engine::Options options;
        options.serve = false;
        std::string error;
        EXPECT_TRUE(engine::prepare(options, &error)) << error;
        RBX_cmd_init();
        for (cmd_node& node : nodes)
            RBX_install_node(&node, nullptr);
        RBX_vty_init(RBX_thread_master_create());
        install_simulate_commands();
        return true;
    }();
    ASSERT_TRUE(is_installed);
}

class SimulateTest : public NetworkTest {
  protected:
    SimulateTest()
    {
        install_once();
        session = engine::open_memory_session();
        session->node = CONFIG_NODE;
    }
    ~SimulateTest() override
    {
        engine::close_session(session);
    }

    std::string type(std::string_view line)
    {
        const engine::Outcome outcome = engine::execute(session, line);
        status = outcome.status;
        result = outcome.result;
        return engine::take_output(session);
    }

    vty* session;
    engine::MatchStatus status = engine::MatchStatus::Empty;
    int result = 0;
};

TEST_F(SimulateTest, HelpSaysWhatIsMeantAndItsRange)
{
    int seen = 0;
    engine::for_each_element(engine::Origin::Host, [&](int, const cmd_element& element) {
        EXPECT_EQ(help_texts::fault(element), "");
        ++seen;
    });
    EXPECT_GT(seen, 0);
}

TEST_F(SimulateTest, LinksAreShownWhereverOneWorks)
{
    for (int node : {VIEW_NODE, ENABLE_NODE, OLT_NODE, ONU_NODE}) {
        session->node = node;
        EXPECT_TRUE(type("show simulate links").starts_with("OLT LLID MAC")) << node;
    }
    session->node = OLT_NODE;
    type("simulate olt 0 remove");
    EXPECT_EQ(status, engine::MatchStatus::Unknown);
}

TEST_F(SimulateTest, FaultsAreInjectedShownAndTakenBack)
{
    EXPECT_EQ(type("show simulate faults"), "No faults are waiting.\r\n");
    EXPECT_EQ(type("simulate fault NEP_reset_olt code -5 count 2"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(type("simulate fault Olt_exists code 0 count 1000000 delay 1"), "");
    EXPECT_EQ(type("show simulate faults"), "NEP_reset_olt: code -5, count 2, delay 0 ms\r\n"
                                            "Olt_exists: code 0, count 1000000, delay 1 ms\r\n");
    EXPECT_EQ(NEP_reset_olt(0), -5);
    EXPECT_EQ(Olt_exists(0), 0);
    EXPECT_EQ(type("show simulate faults"), "NEP_reset_olt: code -5, count 1, delay 0 ms\r\n"
                                            "Olt_exists: code 0, count 999999, delay 1 ms\r\n");
    EXPECT_EQ(type("no simulate faults"), "");
    EXPECT_EQ(type("show simulate faults"), "No faults are waiting.\r\n");
    EXPECT_NE(Olt_exists(0), 0);
}

TEST_F(SimulateTest, FaultsOfTestsAreShownInFull)
{
    ASSERT_TRUE(sdk_sim::inject({.operation = "Olt_exists", .code = 1, .count = 2, .skip = 3, .after = true}));
    EXPECT_EQ(type("show simulate faults"),
              "Olt_exists: code 1, count 2, delay 0 ms, after 3 calls that pass, the call is carried out\r\n");
}

TEST_F(SimulateTest, UnknownOperationsAreRefused)
{
    EXPECT_EQ(type("simulate fault NEP_nothing code 1 count 1"),
              "% There is no operation \"NEP_nothing\"; see \"show simulate operations\"\r\n");
    EXPECT_EQ(result, -1);
    EXPECT_TRUE(sdk_sim::faults().empty());
}

TEST_F(SimulateTest, RangesAreTheEngines)
{
    for (const char* line :
         {"simulate fault Olt_exists code -32769 count 1", "simulate fault Olt_exists code 32768 count 1",
          "simulate fault Olt_exists code 1 count 0", "simulate fault Olt_exists code 1 count 1000001",
          "simulate fault Olt_exists code 1 count 1 delay 60001", "simulate event alarm olt 16",
          "simulate olt 16 remove", "simulate olt 0 melt", "simulate event melted olt 0"}) {
        const std::string output = type(line);
        EXPECT_NE(status, engine::MatchStatus::Matched) << line;
        EXPECT_NE(("\n" + output).find("\n% "), std::string::npos) << line << "\n" << output;
    }
    EXPECT_TRUE(sdk_sim::faults().empty());
    EXPECT_EQ(type("simulate fault Olt_exists code -32768 count 1"), "");
    EXPECT_EQ(Olt_exists(0), -32768);
}

TEST_F(SimulateTest, OperationsAreListed)
{
    std::string expected;
    for (const std::string& name : sdk_sim::operations())
        expected += name + "\r\n";
    EXPECT_EQ(type("show simulate operations"), expected);
}

TEST_F(SimulateTest, EventsAreRaised)
{
    watch_events();
    EXPECT_EQ(type("simulate event alarm olt 3 values onu_id=5,alarm=4,raised=1"), "");
    EXPECT_EQ(type("simulate event onu-registered olt 15"), "");
    EXPECT_EQ(take_events(), (Lines{"olt 3: onu 5 alarm 4 raised", "olt 15: onu 0 registered, rate 0, rtt 0"}));
    EXPECT_EQ(type("simulate event alarm olt 3 values onu_id=5,colour=4"),
              "% alarm has no field \"colour\"; it has onu_id, alarm, raised, value\r\n");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(take_events(), Lines{});
}

TEST_F(SimulateTest, EveryKindOfEventCanBeTypedAndIsShown)
{
    const std::string shown = type("show simulate events");
    for (const sdk_sim::EventDescription& event : sdk_sim::event_descriptions()) {
        EXPECT_EQ(type("simulate event " + event.name + " olt 0"), "") << event.name;
        EXPECT_EQ(result, 0) << event.name;
        EXPECT_NE(("\r\n" + shown).find("\r\n" + event.name + "\r\n  " + event.fields[0].name + ": "),
                  std::string::npos)
            << event.name;
    }
}

// A grammar is a fixed text, so the kinds stand in it a second time.
TEST_F(SimulateTest, GrammarHasTheKindsOfTheTable)
{
    std::string kinds;
    for (const sdk_sim::EventDescription& event : sdk_sim::event_descriptions())
        kinds += (kinds.empty() ? "(" : "|") + event.name;
    std::set<std::string> grammars;
    engine::for_each_element(engine::Origin::Host, [&](int, const cmd_element& element) {
        if (std::string_view(element.string).starts_with("simulate event ")) grammars.insert(element.string);
    });
    EXPECT_EQ(grammars, (std::set<std::string>{"simulate event " + kinds + ") olt <0-15>",
                                               "simulate event " + kinds + ") olt <0-15> values VALUES"}));
}

TEST_F(SimulateTest, OltsGoAndReturn)
{
    EXPECT_EQ(type("simulate olt 0 remove"), "");
    EXPECT_EQ(Olt_exists(0), 0);
    EXPECT_EQ(type("simulate olt 0 remove"), "% OLT 0 is not present\r\n");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(type("simulate olt 0 return"), "");
    EXPECT_NE(Olt_exists(0), 0);
    EXPECT_EQ(type("simulate olt 0 return"), "% OLT 0 is present already, or not part of this network\r\n");
    EXPECT_EQ(type("simulate olt 9 return"), "% OLT 9 is present already, or not part of this network\r\n");
}

TEST_F(SimulateTest, LoopsAreMadeAndRemoved)
{
    EXPECT_EQ(type("simulate loop olt 0 onu 0 port 1 make"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(type("simulate loop olt 0 onu 0 port 1 make"),
              "% There is no such ONU, or the port has a loop already\r\n");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(type("simulate loop olt 0 onu 0 port 1 remove"), "");
    EXPECT_EQ(type("simulate loop olt 0 onu 0 port 1 remove"), "% There is no such ONU, or the port has no loop\r\n");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(type("simulate loop olt 0 onu 77 port 1 make"),
              "% There is no such ONU, or the port has a loop already\r\n");
    EXPECT_EQ(type("simulate loop olt 9 onu 0 port 1 make"),
              "% There is no such ONU, or the port has a loop already\r\n");
}

TEST_F(SimulateTest, LinksOfTheOltsThatArePresent)
{
    const std::string all = type("show simulate links");
    EXPECT_TRUE(all.starts_with("OLT LLID MAC               Mode         Rate    RTT\r\n")) << all;
    EXPECT_EQ(std::count(all.begin(), all.end(), '\n'), 8);
    EXPECT_NE(all.find("\r\n0   1    "), std::string::npos) << all;
    EXPECT_NE(all.find(" unauthorized "), std::string::npos) << all;
    EXPECT_NE(all.find("\r\n0   254  "), std::string::npos) << all;
    EXPECT_EQ(type("show simulate links olt 0"), all);
    EXPECT_EQ(type("show simulate links olt 1"), all.substr(0, all.find('\n') + 1)); // absent
}

TEST_F(SimulateTest, CommandsAreInTheirNodes)
{
    std::map<int, Lines> grammars;
    engine::for_each_element(engine::Origin::Host, [&](int node, const cmd_element& element) {
        grammars[node].emplace_back(element.string);
    });
    EXPECT_EQ(grammars.size(), 5U);
    EXPECT_EQ(grammars[CONFIG_NODE].size(), 12U);
    EXPECT_EQ(grammars[ENABLE_NODE], grammars[CONFIG_NODE]);
    Lines shows;
    for (const std::string& grammar : grammars[CONFIG_NODE])
        if (grammar.starts_with("show ")) shows.push_back(grammar);
    for (int node : {VIEW_NODE, OLT_NODE, ONU_NODE})
        EXPECT_EQ(grammars[node], shows) << node;
    session->node = ENABLE_NODE;
    EXPECT_EQ(type("show simulate faults"), "No faults are waiting.\r\n");
}

} // namespace
