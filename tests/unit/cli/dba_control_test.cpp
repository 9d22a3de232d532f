// SPDX-License-Identifier: Apache-2.0
#include "olt/dba_control.h"

#include "links_fixture.h"

namespace {

constexpr const char* NOT_RUNNING = "Command return error.\r\ndba not running (error code : -1010)\r\n";

class DbaControl : public Links {
  protected:
    DbaControl()
    {
        enter(OLT_PON_NODE);
    }

    void run_algorithm(const char* name)
    {
        load(std::string("[[olt]]\nid = 0\nmac = \"00-0a-c4-00-00-01\"\n[olt.dba]\nalgorithm = \"") + name + "\"\n");
    }
};

TEST_F(DbaControl, StopEndsWhateverRuns)
{
    EventLines events;
    const std::pair<const char*, const char*> algorithms[] = {
        {"internal", "internal"}, {"vireo", "vireo"}, {"aldebaran", "aldebaran"}};
    for (const auto& [name, shown] : algorithms) {
        run_algorithm(name);
        EXPECT_EQ(type("dba stop"), "");
        EXPECT_EQ(result, 0);
        EXPECT_EQ(events.after(), std::string("dba-state-changed: olt 0, dba ") + shown + ", running no \r\n");
        journal();
        EXPECT_EQ(type("dba stop"), NOT_RUNNING);
        EXPECT_EQ(result, -1010);
        EXPECT_EQ(journal(), Calls{"NEP_stop_dba_algorithm(0) = -1010"});
        EXPECT_EQ(events.after(), "");
    }
}

TEST_F(DbaControl, StopExternalLeavesTheOltsOwnAlone)
{
    EventLines events;
    journal();
    EXPECT_EQ(type("dba stop-external"), NOT_RUNNING);
    EXPECT_EQ(result, -1010);
    EXPECT_EQ(journal(), Calls{"NEP_stop_external_dba_algorithm(0) = -1010"});
    EXPECT_EQ(events.after(), "");
    EXPECT_EQ(type("dba stop"), ""); // it still ran
    events.after();
    run_algorithm("meridian");
    journal();
    EXPECT_EQ(type("dba stop-external"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"NEP_stop_external_dba_algorithm(0) = 0"});
    EXPECT_EQ(events.after(), "dba-state-changed: olt 0, dba meridian, running no \r\n");
}

TEST_F(DbaControl, ReportFormat)
{
    const std::pair<const char*, const char*> cases[] = {{"standard", "0"}, {"threshold", "1"}};
    for (const auto& [word, code] : cases) {
        EXPECT_EQ(type(std::string("dba report-format format-mode ") + word), "");
        EXPECT_EQ(result, 0);
        EXPECT_EQ(journal(), Calls{std::string("NEP_set_dba_report_format(0, ") + code + ") = 0"});
    }
    for (const char* word : {"", "both"}) {
        EXPECT_EQ(call(set_dba_report_format, {word}),
                  "Error reading format_mode parameter (of the type dba_report_format), aborting\r\n");
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(DbaControl, Failures)
{
    const std::pair<const char*, const char*> cases[] = {
        {"dba stop", "NEP_stop_dba_algorithm"},
        {"dba stop-external", "NEP_stop_external_dba_algorithm"},
        {"dba report-format format-mode threshold", "NEP_set_dba_report_format"},
    };
    for (const auto& [line, operation] : cases)
        expect_olt_failures(line, operation, OLT_PON_NODE);
}

} // namespace
