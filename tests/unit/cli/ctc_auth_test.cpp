// SPDX-License-Identifier: Apache-2.0
#include <cstring>
#include <string>

#include "CTC_STACK_CLI/auth.h"
#include "links_fixture.h"

namespace {

constexpr const char* CTC_NO_OLT = "Command return error.\r\nOLT not exist (error code : -17003)\r\n";
constexpr const char* QUERY_FAILED = "Command return error.\r\nquery failed (error code : -17001)\r\n";
constexpr const char* ALREADY_EXIST = "Command return error.\r\nalready exist (error code : -17007)\r\n";
constexpr const char* TABLE_FULL = "Command return error.\r\ntable full (error code : -17008)\r\n";

class CtcAuth : public Links {
  protected:
    CtcAuth()
    {
        load(laboratory({{5, "loid = 'alice'\nloid_password = 'secret'"},
                         {6, "loid = 'bob'"},
                         {7, "loid = 'carol'\nextended_oam = 'none'"},
                         {8}},
                        "[life]\nreturn_time = 5\n"));
        enter(OLT_NODE);
    }

    // The registered ONUs among 5 to 8.
    static std::string registered()
    {
        std::string onus;
        for (int16_t id = 5; id <= 8; ++id) {
            int32_t mode;
            EXPECT_EQ(NEP_get_onu_mode(0, id, &mode), 0);
            if (mode == ONU_MODE_REGISTERED) onus += std::to_string(id);
            if (mode == ONU_MODE_REGISTERED_UNAUTHORIZED) onus += std::to_string(id) + "?";
        }
        return onus;
    }

    // Who is registered once everybody who was sent away has asked again.
    static std::string registered_later()
    {
        sdk_sim::advance_clock(5000);
        return registered();
    }
};

TEST_F(CtcAuth, TableOfLoids)
{
    EXPECT_EQ(type("show ctc auth loid-data-table"), "OLT_id: 0 \r\nnumber_of_loids: 0 \r\n");
    EXPECT_EQ(journal(), Calls{"CTC_STACK_get_auth_loid_data_table(0) = 0 -> []"});
    EXPECT_EQ(type("ctc auth loid-data-add onu-id alice password secret"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"CTC_STACK_add_auth_loid_data(0, \"alice\", \"secret\") = 0"});
    EXPECT_EQ(type("ctc auth loid-data-add onu-id bob password none"), "");
    EXPECT_EQ(journal(), Calls{"CTC_STACK_add_auth_loid_data(0, \"bob\", \"\") = 0"});
    EXPECT_EQ(type("ctc auth loid-data-add onu-id abcdefghijklmnopqrstuvwx password 123456789012"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(type("show ctc auth loid-data-table"),
              "OLT_id: 0 \r\nnumber_of_loids: 3 \r\n"
              "loid_id: alice \r\npassword: secret \r\n"
              "loid_id: bob \r\npassword: none \r\n"
              "loid_id: abcdefghijklmnopqrstuvwx \r\npassword: 123456789012 \r\n");
    EXPECT_EQ(result, 0);
    journal();
    EXPECT_EQ(type("ctc auth loid-data-remove onu-id alice"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"CTC_STACK_remove_auth_loid_data(0, \"alice\") = 0"});
    type("show ctc auth loid-data-table");
    EXPECT_EQ(journal(), Calls{"CTC_STACK_get_auth_loid_data_table(0) = 0 -> [\"bob\",\"abcdefghijklmnopqrstuvwx\"]"});
}

TEST_F(CtcAuth, APasswordMayBeginLikeTheWordForNone)
{
    for (const char* password : {"n", "no", "non", "nones"}) {
        const std::string loid = std::string("with-") + password;
        EXPECT_EQ(type("ctc auth loid-data-add onu-id " + loid + " password " + password), "");
        EXPECT_EQ(journal(), Calls{"CTC_STACK_add_auth_loid_data(0, \"" + loid + "\", \"" + password + "\") = 0"});
    }
}

TEST_F(CtcAuth, TableRefusals)
{
    EXPECT_EQ(type("ctc auth loid-data-add onu-id abcdefghijklmnopqrstuvwxy password none"),
              "Error reading ONU_ID has wrong length, aborting\r\n");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(type("ctc auth loid-data-add onu-id alice password 1234567890123"),
              "Error reading password has wrong length, aborting\r\n");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(type("ctc auth loid-data-remove onu-id abcdefghijklmnopqrstuvwxy"),
              "Error reading ONU_ID has wrong length, aborting\r\n");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(call(auth_loid_data_add, {"", "none"}),
              "Error reading ONU_ID parameter for command from input, aborting\r\n");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(call(auth_loid_data_add, {"alice", " "}),
              "Error reading password parameter for command from input, aborting\r\n");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(call(auth_loid_data_remove, {" "}),
              "Error reading ONU_ID parameter for command from input, aborting\r\n");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(journal(), Calls{});

    EXPECT_EQ(type("ctc auth loid-data-remove onu-id alice"), BAD_PARAMETER);
    EXPECT_EQ(result, -4);
    type("ctc auth loid-data-add onu-id alice password secret");
    EXPECT_EQ(type("ctc auth loid-data-add onu-id alice password other"), ALREADY_EXIST);
    EXPECT_EQ(result, -17007);
    for (int i = 1; i < CTC_LOID_TABLE_SIZE; ++i) {
        ASSERT_EQ(type("ctc auth loid-data-add onu-id onu" + std::to_string(i) + " password none"), "");
    }
    EXPECT_EQ(type("ctc auth loid-data-add onu-id one-too-many password none"), TABLE_FULL);
    EXPECT_EQ(result, -17008);
    const std::string table = type("show ctc auth loid-data-table");
    EXPECT_NE(table.find("number_of_loids: 256 \r\n"), std::string::npos);
    EXPECT_EQ(table.find("one-too-many"), std::string::npos);
    type("ctc auth loid-data-remove onu-id onu100");
    EXPECT_EQ(type("ctc auth loid-data-add onu-id one-too-many password none"), "");
}

TEST_F(CtcAuth, Mode)
{
    EXPECT_EQ(type("show ctc auth mode"), "mode: auth-mac \r\n");
    const char* words[] = {"auth-mac", "auth-loid", "auth-hybrid", "auth-loid-not-chk-pwd", "auth-hybrid-not-chk-pwd"};
    int value = 0;
    for (const char* word : words) {
        journal();
        EXPECT_EQ(type(std::string("ctc auth mode ") + word), "");
        EXPECT_EQ(result, 0);
        EXPECT_EQ(journal(), Calls{"CTC_STACK_set_auth_mode(0, " + std::to_string(value) + ") = 0"});
        EXPECT_EQ(type("show ctc auth mode"), std::string("mode: ") + word + " \r\n");
        EXPECT_EQ(journal(), Calls{"CTC_STACK_get_auth_mode(0) = 0 -> " + std::to_string(value)});
        ++value;
    }
    EXPECT_EQ(call(auth_mode, {"auth"}), "Error reading mode parameter (of the type auth_mode), aborting\r\n");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(journal(), Calls{});
    for (const int32_t mode : {-1, 5})
        EXPECT_EQ(CTC_STACK_set_auth_mode(0, mode), -4);
}

TEST_F(CtcAuth, LinksKeptForLoids)
{
    type("ctc auth loid-data-add onu-id alice password secret");
    type("ctc auth loid-data-add onu-id bob password none");
    journal();
    EXPECT_EQ(type("ctc auth loid-llid-config loid-id alice llid 5"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"CTC_STACK_set_loid_db_llid(0, \"alice\", 5) = 0"});
    EXPECT_EQ(type("show ctc auth loid-llid-config llid 0x5"), "OLT_id: 0 \r\nllid: 5 \r\nloid_id: alice \r\n");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"CTC_STACK_get_loid_id_by_llid(0, 5) = 0 -> \"alice\""});
    EXPECT_EQ(type("ctc auth loid-llid-config loid-id alice llid 5"), ""); // once more changes nothing
    EXPECT_EQ(type("ctc auth loid-llid-config loid-id alice llid 254"), ALREADY_EXIST);
    EXPECT_EQ(result, -17007);
    EXPECT_EQ(type("ctc auth loid-llid-config loid-id bob llid 5"), ALREADY_EXIST);
    EXPECT_EQ(type("ctc auth loid-llid-config loid-id carol llid 6"), BAD_PARAMETER);
    EXPECT_EQ(result, -4);
    for (const char* llid : {"-1", "255"}) {
        EXPECT_EQ(type(std::string("ctc auth loid-llid-config loid-id bob llid ") + llid), BAD_PARAMETER);
        EXPECT_EQ(type(std::string("show ctc auth loid-llid-config llid ") + llid), BAD_PARAMETER);
        EXPECT_EQ(type(std::string("no ctc auth loid-llid-config llid ") + llid), BAD_PARAMETER);
        EXPECT_EQ(result, -4);
    }
    journal();
    EXPECT_EQ(type("no ctc auth loid-llid-config llid 5"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"CTC_STACK_set_loid_db_llid(0, \"\", 5) = 0"});
    EXPECT_EQ(type("no ctc auth loid-llid-config llid 5"), QUERY_FAILED);
    EXPECT_EQ(result, -17001);
    EXPECT_EQ(type("show ctc auth loid-llid-config llid 5"), QUERY_FAILED);
    EXPECT_EQ(result, -17001);
    // A LOID that leaves the table takes its link along.
    type("ctc auth loid-llid-config loid-id bob llid 254");
    type("ctc auth loid-data-remove onu-id bob");
    EXPECT_EQ(type("show ctc auth loid-llid-config llid 254"), QUERY_FAILED);
}

TEST_F(CtcAuth, LinkConversion)
{
    const std::pair<const char*, const char*> cases[] = {
        {"x", "Error reading LLID_INDEX parameter for command from input, aborting\r\n"},
        {"32768", "Error in range of LLID_INDEX parameter for command from input min:-32767 max:32767, aborting\r\n"}};
    for (const auto& [llid, message] : cases) {
        for (const char* command : {"ctc auth loid-llid-config loid-id alice llid ",
                                    "no ctc auth loid-llid-config llid ", "show ctc auth loid-llid-config llid "}) {
            EXPECT_EQ(type(std::string(command) + llid), message);
            EXPECT_EQ(result, -1);
        }
    }
    EXPECT_EQ(type("ctc auth loid-llid-config loid-id abcdefghijklmnopqrstuvwxy llid 5"),
              "Error reading LOID_ID has wrong length, aborting\r\n");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(CtcAuth, FailedCalls)
{
    const std::pair<const char*, const char*> commands[] = {
        {"ctc auth loid-data-add onu-id alice password secret", "CTC_STACK_add_auth_loid_data"},
        {"ctc auth loid-data-remove onu-id alice", "CTC_STACK_remove_auth_loid_data"},
        {"show ctc auth loid-data-table", "CTC_STACK_get_auth_loid_data_table"},
        {"ctc auth mode auth-loid", "CTC_STACK_set_auth_mode"},
        {"show ctc auth mode", "CTC_STACK_get_auth_mode"},
        {"ctc auth loid-llid-config loid-id alice llid 5", "CTC_STACK_set_loid_db_llid"},
        {"no ctc auth loid-llid-config llid 5", "CTC_STACK_set_loid_db_llid"},
        {"show ctc auth loid-llid-config llid 5", "CTC_STACK_get_loid_id_by_llid"}};
    for (const auto& [line, operation] : commands) {
        enter(OLT_NODE);
        inject(operation, -17008);
        EXPECT_EQ(type(line), TABLE_FULL) << line;
        EXPECT_EQ(result, -17008);
        inject(operation, -17011);
        EXPECT_EQ(type(line), "Command return error.\r\nError code was not found!!! (error code : -17011)\r\n");
        EXPECT_EQ(result, -17011);
        enter(OLT_NODE, 1);
        EXPECT_EQ(type(line), CTC_NO_OLT) << line;
        EXPECT_EQ(result, -17003);
    }
}

// --- Who is admitted ---------------------------------------------------------------------------------------------

TEST_F(CtcAuth, MacModeAsksForNoLoid)
{
    EXPECT_EQ(registered(), "5678");
    type("ctc auth loid-data-add onu-id alice password wrong");
    EXPECT_EQ(registered_later(), "5678");
}

TEST_F(CtcAuth, LoidModeSendsAwayWhoHasNoneAndTakesThemBack)
{
    EventLines events;
    type("ctc auth loid-data-add onu-id bob password none");
    type("ctc auth mode auth-loid");
    EXPECT_EQ(registered(), "6");
    EXPECT_EQ(events.after(0), "onu-deregistered: olt 0, onu 5, mac 02-00-00-00-00-05, reason refused \r\n"
                               "onu-deregistered: olt 0, onu 7, mac 02-00-00-00-00-07, reason refused \r\n"
                               "onu-deregistered: olt 0, onu 8, mac 02-00-00-00-00-08, reason refused \r\n");
    EXPECT_EQ(events.after(5000), "onu-registration-refused: olt 0, mac 02-00-00-00-00-05, reason not-authorized \r\n"
                                  "onu-registration-refused: olt 0, mac 02-00-00-00-00-07, reason not-authorized \r\n"
                                  "onu-registration-refused: olt 0, mac 02-00-00-00-00-08, reason not-authorized \r\n");
    type("ctc auth loid-data-add onu-id alice password secret");
    type("ctc auth loid-data-add onu-id carol password none"); // whose ONU cannot tell its LOID
    EXPECT_EQ(registered_later(), "56");
    const std::string lines = events.after(0);
    EXPECT_NE(lines.find("onu-registered: olt 0, onu 5"), std::string::npos) << lines;
    type("ctc auth loid-data-remove onu-id bob");
    EXPECT_EQ(registered(), "5");
    type("ctc auth mode auth-mac");
    EXPECT_EQ(registered_later(), "5678");
}

TEST_F(CtcAuth, PasswordsCountUnlessTheyAreNotChecked)
{
    type("ctc auth loid-data-add onu-id alice password Secret");
    type("ctc auth loid-data-add onu-id bob password needed");
    type("ctc auth mode auth-loid");
    EXPECT_EQ(registered_later(), "");
    type("ctc auth mode auth-loid-not-chk-pwd");
    EXPECT_EQ(registered_later(), "56");
    type("ctc auth mode auth-hybrid"); // without a white list the LOID stands alone
    EXPECT_EQ(registered_later(), "");
    type("ctc auth mode auth-hybrid-not-chk-pwd");
    EXPECT_EQ(registered_later(), "56");
}

TEST_F(CtcAuth, HybridTakesAnAddressOfTheWhiteListToo)
{
    type("ctc auth loid-data-add onu-id alice password secret");
    type("add auth-list-mac mac-address 02-00-00-00-00-08");
    type("set auth-list operation-mode mac-list");
    type("ctc auth mode auth-hybrid");
    sdk_sim::advance_clock(5000);
    EXPECT_EQ(registered_later(), "58");
    type("ctc auth mode auth-loid"); // both proofs are needed
    EXPECT_EQ(registered_later(), "");
    type("set auth-list operation-mode hybrid"); // who is not listed waits for an operator
    EXPECT_EQ(registered_later(), "5?");
    type("ctc auth mode auth-hybrid");
    EXPECT_EQ(registered_later(), "56?7?8");
}

TEST_F(CtcAuth, LinkOfALoidIsForItsOnuAlone)
{
    type("ctc auth loid-data-add onu-id alice password secret");
    type("ctc auth loid-data-add onu-id bob password none");
    type("ctc auth mode auth-loid");
    EXPECT_EQ(registered(), "56");
    type("ctc auth loid-llid-config loid-id bob llid 5");
    EXPECT_EQ(registered_later(), "");
    type("no ctc auth loid-llid-config llid 5");
    type("ctc auth loid-llid-config loid-id bob llid 6");
    EXPECT_EQ(registered_later(), "56");
}

TEST_F(CtcAuth, LoidAdmitsOneOnuAtATime)
{
    load(R"(
[[olt]]
id = 0
mac = "00-0a-c4-00-00-01"
[[olt.onu]]
first = 5
count = 4
mac = "02-00-00-00-00-05"
loid = "shared"
)");
    type("ctc auth loid-data-add onu-id shared password none");
    type("ctc auth mode auth-loid");
    EXPECT_EQ(registered(), "8");
}

TEST_F(CtcAuth, ResetForgetsTheTable)
{
    type("ctc auth loid-data-add onu-id alice password secret");
    type("ctc auth mode auth-loid");
    enter(CONFIG_NODE);
    type("no olt 0");
    ASSERT_EQ(type("olt 0 00-0a-c4-00-00-01 image flash"), "");
    enter(OLT_NODE);
    EXPECT_EQ(type("show ctc auth mode"), "mode: auth-mac \r\n");
    EXPECT_EQ(type("show ctc auth loid-data-table"), "OLT_id: 0 \r\nnumber_of_loids: 0 \r\n");
}

} // namespace
