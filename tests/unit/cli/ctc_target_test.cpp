// SPDX-License-Identifier: Apache-2.0
// How commands of the CTC stack find their ONU, shown by one that is as plain as any.
#include "CTC_STACK_CLI/dba_report_threshold.h"

#include <cstring>

#include "ctc_stack_fixture.h"

namespace {

class CtcTarget : public ExtendedOam {
  protected:
    std::string show(const std::string& olt, const std::string& onu)
    {
        return type("show ctc onu dba-reports-threshold " + olt + " " +
                    (onu.find('-') == std::string::npos ? "" : "onu-mac-address ") + onu);
    }
    // With words that no grammar would let through.
    std::string show_raw(const std::string& olt, const std::string& onu)
    {
        return call(show_dba_report_thresholds, {olt, onu});
    }
    static bool shows(const std::string& text, int onu)
    {
        return text.starts_with("OLT_id: 0 \r\nONU_id: " + std::to_string(onu) + " \r\n");
    }
};

constexpr const char* GET_5 = "CTC_STACK_get_dba_report_thresholds(0, 5) = 0 -> 2, [-,-,-,-,-,-,-,-]";
constexpr const char* ALL = "CTC_STACK_get_dba_report_thresholds(3, 4095) = -17003";

TEST_F(CtcTarget, ByIndex)
{
    for (const char* olt : {"0", "0x0"}) {
        for (const char* onu : {"5", "0x5", "0x05", "0005"}) {
            EXPECT_TRUE(shows(show(olt, onu), 5)) << olt << " " << onu;
            EXPECT_EQ(result, 0);
            EXPECT_EQ(journal(), Calls{GET_5});
        }
    }
}

TEST_F(CtcTarget, OltsThatCannotBeRead)
{
    struct Case {
        const char* olt;
        const char* message;
        int result;
    };
    const Case cases[] = {
        {"x", "Error reading OLT_id parameter for command from input, aborting\r\n", -1},
        {"1x", "Error reading OLT_id parameter for command from input, aborting\r\n", -1},
        {"0x", "Error reading OLT_id parameter for command from input, aborting\r\n", -1},
        {"99999999999", "Error reading OLT_id parameter for command from input, aborting\r\n", -1},
        {"32768", "Error in range of OLT_id parameter for command from input min:-32767 max:32767, aborting\r\n", -1},
        {"-32768", "Error in range of OLT_id parameter for command from input min:-32767 max:32767, aborting\r\n", -1},
        {"32767", "Error, OLT id (32767) is out of bounds. OLT range: 0 - 15\n", -4},
        {"-32767", "Error, OLT id (-32767) is out of bounds. OLT range: 0 - 15\n", -4},
        {"-1", "Error, OLT id (-1) is out of bounds. OLT range: 0 - 15\n", -4},
        {"0x10", "Error, OLT id (16) is out of bounds. OLT range: 0 - 15\n", -4},
    };
    for (const Case& test : cases) {
        for (const char* onu : {"5", "02-00-00-00-00-05", "x"}) {
            EXPECT_EQ(show(test.olt, onu), test.message) << test.olt;
            EXPECT_EQ(result, test.result);
        }
    }
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(CtcTarget, AnOltOutOfBoundsEndsWithABareLineFeedOnEverySession)
{
    EXPECT_EQ(show("16", "1"), "Error, OLT id (16) is out of bounds. OLT range: 0 - 15\n");
    EXPECT_EQ(result, -4);
    session->type = 1;
    EXPECT_EQ(show("16", "1"), "Error, OLT id (16) is out of bounds. OLT range: 0 - 15\n");
    EXPECT_EQ(result, -4);
    EXPECT_EQ(show("x", "1"), "Error reading OLT_id parameter for command from input, aborting\n");
}

TEST_F(CtcTarget, TheLastOltIsInBounds)
{
    EXPECT_EQ(show("15", "5"), NO_OLT);
    EXPECT_EQ(result, -17003);
    EXPECT_EQ(show("0xf", "5"), NO_OLT);
}

TEST_F(CtcTarget, FourCharactersAreAnIndexAndFiveAnAddress)
{
    EXPECT_EQ(show("0", "0x1f"), NO_ONU);
    EXPECT_EQ(journal(), Calls{"CTC_STACK_get_dba_report_thresholds(0, 31) = -17002"});
    EXPECT_EQ(show("0", "9999"), NO_ONU);
    EXPECT_EQ(journal(), Calls{"CTC_STACK_get_dba_report_thresholds(0, 9999) = -17002"});
    EXPECT_EQ(show("0", "0x01f"), "Error reading MAC address parameter from the MAC address string, aborting\r\n");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(show("0", "00005"), "Error reading MAC address parameter from the MAC address string, aborting\r\n");
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(CtcTarget, IndicesThatCannotBeRead)
{
    for (const char* onu : {"x", "5x", "0x", "0xg"}) {
        EXPECT_EQ(show("0", onu), "Error reading onu_index parameter for command from input, aborting\r\n") << onu;
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(show_raw("0", ""), "Error reading onu_index parameter for command from input, aborting\r\n");
    EXPECT_EQ(journal(), Calls{});
    // Four characters hold no number out of range.
    EXPECT_EQ(show_raw("0", "-999"), NO_ONU);
    EXPECT_EQ(show_raw("0", "0xff"), NO_ONU);
}

TEST_F(CtcTarget, ByAddress)
{
    EXPECT_TRUE(shows(show("0", "02-00-00-00-00-05"), 5));
    EXPECT_EQ(journal(), (Calls{"Mac_address_exist(0, 02-00-00-00-00-05) = 1 -> 5", GET_5}));
    EXPECT_EQ(show("0", "02-00-00-00-00-77"), "There is no 02-00-00-00-00-77 mac address in the system\r\n");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(show_raw("0", "02-0-0-0-0-5-9"), show("0", "02-00-00-00-00-05")); // a seventh field does not count
    EXPECT_EQ(show_raw("0", "02-0-0-0-0-AB"), "There is no 02-0-0-0-0-AB mac address in the system\r\n"); // as typed
}

TEST_F(CtcTarget, AddressesThatCannotBeRead)
{
    for (const char* onu : {"02-00-00-00-00", "02:00:00:00:00:05", "02-00-00-00-00-0g", "-----"}) {
        EXPECT_EQ(show_raw("0", onu), "Error reading MAC address parameter from the MAC address string, aborting\r\n");
        EXPECT_EQ(result, 0);
    }
    EXPECT_EQ(show_raw("0", "     "), "Error reading mac_address parameter for command from input, aborting\r\n");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(CtcTarget, AnAddressHasSeventeenCharacters)
{
    EXPECT_TRUE(shows(show_raw("0", "02-00-00-00-00-05"), 5));
    EXPECT_EQ(show_raw("0", "02-00-00-00-00-005"), "Error reading mac_address has wrong length, aborting\r\n");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(show_raw("0", "ff-ff-ff-ff-ff-ff0"), "Error reading mac_address has wrong length, aborting\r\n");
}

TEST_F(CtcTarget, TheBroadcastAddressIsNotLookedUp)
{
    EXPECT_EQ(show("3", "ff-ff-ff-ff-ff-ff"), NO_OLT);
    EXPECT_EQ(result, -17003);
    EXPECT_EQ(journal(), Calls{ALL});
}

TEST_F(CtcTarget, TheBroadcastAddressInOtherLettersIsAnAddressLikeAny)
{
    for (const char* onu : {"FF-FF-FF-FF-FF-FF", "ff-ff-ff-ff-ff-fF", "ff-ff-ff-ff-ff-f"}) {
        EXPECT_EQ(show_raw("0", onu), std::string("There is no ") + onu + " mac address in the system\r\n");
        EXPECT_EQ(result, 0);
        EXPECT_EQ(journal().size(), 1u);
    }
}

// --- In the ONU node ---------------------------------------------------------------------------------------------

TEST_F(CtcTarget, OfTheSession)
{
    enter_onu(5);
    EXPECT_TRUE(shows(type("show ctc dba-reports-threshold"), 5));
    EXPECT_EQ(journal(), Calls{GET_5});
    enter_onu_by_mac("02-00-00-00-00-05");
    EXPECT_TRUE(shows(type("show ctc dba-reports-threshold"), 5));
    EXPECT_EQ(journal(), (Calls{"Mac_address_exist(0, 02-00-00-00-00-05) = 1 -> 5", GET_5}));
    EXPECT_TRUE(shows(type("show ctc dba-reports-threshold"), 5));
    EXPECT_STREQ(session->onu_mac, "02-00-00-00-00-05"); // as it was typed
    session->onu_by_index = 2;                           // only 1 means the index
    EXPECT_TRUE(shows(type("show ctc dba-reports-threshold"), 5));
}

TEST_F(CtcTarget, ASessionsAddressThatIsWrong)
{
    enter_onu_by_mac("02-00-00-00-00-77");
    EXPECT_EQ(type("show ctc dba-reports-threshold"), "There is no 02-00-00-00-00-77 mac address in the system\r\n");
    EXPECT_EQ(result, 0);
    enter_onu_by_mac("02-00");
    EXPECT_EQ(type("show ctc dba-reports-threshold"),
              "Error reading MAC address parameter from the MAC address string, aborting\r\n");
    EXPECT_EQ(result, 0);
    enter_onu_by_mac("");
    EXPECT_EQ(type("show ctc dba-reports-threshold"),
              "Error reading MAC address parameter from the MAC address string, aborting\r\n");
    // It has no short cut to the broadcast ONU, and no length of its own to keep.
    enter_onu_by_mac("ff-ff-ff-ff-ff-ff");
    EXPECT_EQ(type("show ctc dba-reports-threshold"), "There is no ff-ff-ff-ff-ff-ff mac address in the system\r\n");
    enter_onu_by_mac("0000002-00-00-00-00-05");
    EXPECT_TRUE(shows(type("show ctc dba-reports-threshold"), 5));
}

TEST_F(CtcTarget, TheSdkDecidesAboutTheSessionsOlt)
{
    enter_onu(5, ONU_NODE, 99);
    EXPECT_EQ(type("show ctc dba-reports-threshold"), NO_OLT);
    EXPECT_EQ(result, -17003);
}

} // namespace
