// SPDX-License-Identifier: Apache-2.0
#include "CTC_STACK_CLI/dba_report_threshold.h"

#include <cstring>

#include "ctc_stack_fixture.h"

namespace {

class DbaReportThreshold : public ExtendedOam {
  protected:
    // "true;1;false;2;..." for the queues of some sets.
    static std::string list(int sets, int first_threshold = 0)
    {
        std::string text;
        for (int i = 0; i < 8 * sets; ++i)
            text += std::string(i % 2 == 0 ? "true;" : "false;") + std::to_string(first_threshold + i) + ';';
        text.pop_back();
        return text;
    }
    // What a setting answers; reports have a blank before the line end.
    static std::string lines(int sets, int first_threshold = 0, const char* end = "\r\n")
    {
        std::string text;
        for (int i = 0; i < 8 * sets; ++i) {
            char line[64];
            snprintf(line, sizeof line, "queue %d: state: %s threshold: 0x%x%s", i % 8, i % 2 == 0 ? "TRUE" : "FALSE",
                     first_threshold + i, end);
            text += line;
        }
        return text;
    }
    std::string set(const std::string& number, const std::string& queues)
    {
        return type("ctc dba-report-threshold queue-sets-number " + number + " queue-sets-list " + queues);
    }
};

// The threshold stands in the upper half of the slot.
TEST_F(DbaReportThreshold, AnEntryIsFourOctets)
{
    CTC_queue_threshold entry = {};
    entry.state = 1;
    entry.threshold = 0x1234;
    uint8_t octets[4];
    memcpy(octets, &entry, sizeof octets);
    EXPECT_EQ(octets[0], 1);
    EXPECT_EQ(octets[1], 0);
    uint16_t upper;
    memcpy(&upper, octets + 2, sizeof upper);
    EXPECT_EQ(upper, 0x1234);
    EXPECT_EQ(sizeof(CTC_queue_set_thresholds), 32u);
}

TEST_F(DbaReportThreshold, SetPrintsEachQueue)
{
    enter_onu(5);
    EXPECT_EQ(set("2", list(1)), lines(1));
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"CTC_STACK_set_dba_report_thresholds(0, 5, 2, [0,-,2,-,4,-,6,-]) = 0"});
    EXPECT_EQ(set("4", list(3)), lines(3));
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"CTC_STACK_set_dba_report_thresholds(0, 5, 4, "
                               "[0,-,2,-,4,-,6,-;8,-,10,-,12,-,14,-;16,-,18,-,20,-,22,-]) = 0"});
}

TEST_F(DbaReportThreshold, Show)
{
    std::string none;
    for (int queue = 0; queue < 8; ++queue)
        none += "queue " + std::to_string(queue) + ": state: FALSE threshold: 0x0 \r\n";
    expect_show(ctc_show("dba-reports-threshold"), ONU_5 + ("number_of_queue_sets: 2 \r\n" + none),
                "CTC_STACK_get_dba_report_thresholds(0, 5) = 0 -> 2, [-,-,-,-,-,-,-,-]");
    set("3", list(2, 65520));
    journal();
    expect_show(ctc_show("dba-reports-threshold"), ONU_5 + ("number_of_queue_sets: 3 \r\n" + lines(2, 65520, " \r\n")),
                "CTC_STACK_get_dba_report_thresholds(0, 5) = 0 -> 3, "
                "[65520,-,65522,-,65524,-,65526,-;65528,-,65530,-,65532,-,65534,-]");
}

TEST_F(DbaReportThreshold, TheLastQueueSetIsNotRead)
{
    enter_onu(5);
    EXPECT_EQ(set("2", list(2) + ";x;y"), lines(1));
    EXPECT_EQ(result, 0);
    // Behind the grammar: one set, or none, has no thresholds at all, and the SDK takes neither.
    for (const char* number : {"0", "1"}) {
        EXPECT_EQ(call(dba_report_thresholds, {number, "none"}), BAD_PARAMETER);
        EXPECT_EQ(result, -4);
    }
}

TEST_F(DbaReportThreshold, MissingTokens)
{
    enter_onu(5);
    EXPECT_EQ(set("3", list(1)), std::string(" error reading queue state in records string\r\n") + BAD_PARAMETER);
    EXPECT_EQ(result, -4);
    EXPECT_EQ(set("2", "true;1;false"),
              std::string(" error reading threshold state in records string\r\n") + BAD_PARAMETER);
    EXPECT_EQ(result, -4);
    EXPECT_EQ(call(dba_report_thresholds, {"255", list(9)}),
              std::string(" error reading queue state in records string\r\n") + BAD_PARAMETER);
    EXPECT_EQ(result, -4);
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(DbaReportThreshold, WrongTokens)
{
    enter_onu(5);
    const std::pair<const char*, const char*> cases[] = {
        {"0123456789;1", "Error reading state parameter, internal buffer is too short, aborting!\r\n"},
        {"012345678;1", "Error reading state parameter (of the type true_false), aborting\r\n"},
        {"TRUE;1", "Error reading state parameter (of the type true_false), aborting\r\n"},
        {"1;1", "Error reading state parameter (of the type true_false), aborting\r\n"},
        {"true;x", "Error reading threshold parameter for command from input, aborting\r\n"},
        {"true;-1", "Error reading negative value of threshold parameter from input, aborting\r\n"},
        {"true;65536", "Error in range of threshold parameter for command from input min:0 max:65535, aborting\r\n"},
        {"true;0x10000", "Error in range of threshold parameter for command from input min:0 max:65535, aborting\r\n"},
        {"true;0xffff;false;x", "Error reading threshold parameter for command from input, aborting\r\n"},
    };
    for (const auto& [queues, message] : cases) {
        EXPECT_EQ(set("2", queues), message);
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(DbaReportThreshold, TheListHoldsThousandTwentyFourCharacters)
{
    enter_onu(5);
    std::string queues = list(1) + ';';
    const std::string rest(1024 - queues.size(), 'x');
    EXPECT_EQ(set("2", queues + rest), lines(1));
    EXPECT_EQ(set("2", queues + rest + 'x'), "Error reading queue_str has wrong length, aborting\r\n");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(call(dba_report_thresholds, {"2", " "}),
              "Error reading queue_str parameter for command from input, aborting\r\n");
    EXPECT_EQ(result, -1);
}

TEST_F(DbaReportThreshold, NumbersBehindTheGrammar)
{
    enter_onu(5);
    const std::pair<const char*, const char*> cases[] = {
        {"x", "Error reading number_of_queue_sets parameter for command from input, aborting\r\n"},
        {"-2", "Error reading negative value of number_of_queue_sets parameter from input, aborting\r\n"},
        {"256", "Error in range of number_of_queue_sets parameter for command from input min:0 max:255, aborting\r\n"},
    };
    for (const auto& [number, message] : cases) {
        EXPECT_EQ(call(dba_report_thresholds, {number, list(1)}), message);
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(journal(), Calls{});
    EXPECT_EQ(call(dba_report_thresholds, {"0x2", list(1)}), lines(1));
    EXPECT_EQ(call(dba_report_thresholds, {"5", list(4)}), BAD_PARAMETER);
}

TEST_F(DbaReportThreshold, ThresholdsThatFallAreRefused)
{
    enter_onu(5);
    std::string first = "true;10";
    std::string second = ";true;9";
    for (int queue = 1; queue < 8; ++queue) {
        first += ";false;20";
        second += ";false;3"; // of queues that are not reported it does not matter
    }
    EXPECT_EQ(set("3", first + second), "Command return error.\r\ndba threshold (error code : -17004)\r\n");
    EXPECT_EQ(result, -17004);
    second.replace(second.find('9'), 1, "10");
    EXPECT_EQ(set("3", first + second).substr(0, 12), "queue 0: sta");
    EXPECT_EQ(result, 0);
}

TEST_F(DbaReportThreshold, Failures)
{
    enter_onu(5);
    const std::string line = "ctc dba-report-threshold queue-sets-number 2 queue-sets-list " + list(1);
    expect_codes(line, "CTC_STACK_set_dba_report_thresholds");
    expect_absence(line);
    expect_codes("show ctc dba-reports-threshold", "CTC_STACK_get_dba_report_thresholds");
    expect_absence("show ctc dba-reports-threshold");
}

TEST_F(DbaReportThreshold, ByAddress)
{
    enter_onu_by_mac("02-00-00-00-00-05");
    EXPECT_EQ(set("2", list(1)), lines(1));
    EXPECT_EQ(journal().front(), "Mac_address_exist(0, 02-00-00-00-00-05) = 1 -> 5");
}

} // namespace
