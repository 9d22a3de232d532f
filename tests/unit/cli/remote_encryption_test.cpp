// SPDX-License-Identifier: Apache-2.0
#include "REMOTE_MANAGEMENT_CLI/encryption.h"

#include "managed_onus_fixture.h"

namespace {

class RemoteEncryption : public ManagedOnus {
  protected:
    RemoteEncryption()
    {
        enter_onu(5);
    }

    void expect_bad_configuration(const std::string& line)
    {
        expect_refusal(line, "bad configuration", -13008);
    }
};

constexpr const char* KEY = "000102030405060708090a0b0c0d0e0f";
constexpr const char* OTHER_KEY = "ffeeddccbbaa99887766554433221100";

TEST_F(RemoteEncryption, Configuration)
{
    Show show = remote_show("mac encryption-configuration");
    show.has_mac_form = false;
    const char* set = "REMOTE_NEPONU_encryption_set_configuration(0, 5, ";
    const char* get = "REMOTE_NEPONU_encryption_get_configuration(0, 5) = 0 -> ";
    struct Case {
        const char* words;
        const char* numbers;
        const char* text;
    };
    const Case cases[] = {
        {"mirror disable bypass disable", "0, 0",
         "encryption_mirror_enable: Disable \r\nencryption_bypass_enable: Disable \r\n"},
        {"mirror enable bypass disable", "1, 0",
         "encryption_mirror_enable: Enable \r\nencryption_bypass_enable: Disable \r\n"},
        {"mirror disable bypass enable", "0, 1",
         "encryption_mirror_enable: Disable \r\nencryption_bypass_enable: Enable \r\n"},
    };
    for (const Case& test : cases) {
        expect_set(std::string("remote mac encryption-configuration ") + test.words,
                   std::string(set) + test.numbers + ") = 0");
        expect_show(show, test.text, get + std::string(test.numbers));
    }
}

TEST_F(RemoteEncryption, ConfigurationHasNoFormWithAnAddress)
{
    enter(ENABLE_NODE);
    for (const char* object : {"mac encryption-configuration", "oam-api encryption-mode"}) {
        type(std::string("show onu remote ") + object + " 0 onu-mac-address 02-00-00-00-00-05");
        EXPECT_EQ(status, engine::MatchStatus::Unknown) << object;
    }
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(RemoteEncryption, Keywords)
{
    expect_keyword(remote_encryption_configuration, {"?", "enable"}, "encryption_mirror_enable", "enable_disable", 10);
    expect_keyword(remote_encryption_configuration, {"enable", "?"}, "encryption_bypass_enable", "enable_disable", 10);
    expect_keyword(remote_encryption_mode, {"?"}, "mode", "encryption_type", 20);
    expect_keyword(remote_encryption_state, {"?"}, "direction", "encryption_direction", 20);
}

TEST_F(RemoteEncryption, Mode)
{
    Show show = remote_show("oam-api encryption-mode");
    show.has_mac_form = false;
    expect_show(show, "mode: ae-aes \r\n", "REMOTE_NEPONU_ENCRYPTION_get_mode(0, 5) = 0 -> 0");
    expect_set("remote oam-api encryption-mode mode triple-churning", "REMOTE_NEPONU_ENCRYPTION_set_mode(0, 5, 1) = 0");
    expect_show(show, "mode: triple-churning \r\n", "REMOTE_NEPONU_ENCRYPTION_get_mode(0, 5) = 0 -> 1");
    expect_set("remote oam-api encryption-mode mode ae-aes", "REMOTE_NEPONU_ENCRYPTION_set_mode(0, 5, 0) = 0");
}

TEST_F(RemoteEncryption, State)
{
    const Show show = remote_show("mac encryption-state");
    expect_show(show, "direction: off \r\n", "REMOTE_NEPONU_encryption_get_state(0, 5) = 0 -> 3");
    type(std::string("remote mac encryption-key index 0 key ") + KEY);
    journal();
    expect_set("remote mac encryption-state direction downlink", "REMOTE_NEPONU_encryption_set_state(0, 5, 1) = 0");
    expect_show(show, "direction: downlink \r\n", "REMOTE_NEPONU_encryption_get_state(0, 5) = 0 -> 1");
    expect_set("remote mac encryption-state direction uplink-and-downlink",
               "REMOTE_NEPONU_encryption_set_state(0, 5, 2) = 0");
    expect_show(show, "direction: uplink-and-downlink \r\n", "REMOTE_NEPONU_encryption_get_state(0, 5) = 0 -> 2");
    expect_set("remote mac encryption-state direction off", "REMOTE_NEPONU_encryption_set_state(0, 5, 3) = 0");
    expect_show(show, "direction: off \r\n", "REMOTE_NEPONU_encryption_get_state(0, 5) = 0 -> 3");
}

// What the grammar does not offer, the handler takes all the same; typed, the word is short for another one.
TEST_F(RemoteEncryption, HandlerTakesUplink)
{
    type(std::string("remote mac encryption-key index 0 key ") + KEY);
    journal();
    EXPECT_EQ(call(remote_encryption_state, {"uplink"}), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"REMOTE_NEPONU_encryption_set_state(0, 5, 0) = 0"});
    EXPECT_EQ(type("show remote mac encryption-state"), "direction: uplink \r\n");
    journal();
    expect_set("remote mac encryption-state direction uplink", "REMOTE_NEPONU_encryption_set_state(0, 5, 2) = 0");
}

TEST_F(RemoteEncryption, Keys)
{
    const std::string zeros(32, '0');
    for (const std::string index : {"0", "1"}) {
        const Show show = remote_show("mac encryption-key", " index " + index);
        const std::string get = "REMOTE_NEPONU_encryption_get_key(0, 5, " + index + ") = 0 -> ";
        expect_show(show, "key: " + zeros + " \r\n", get + zeros);
        const std::string key = index == "0" ? KEY : OTHER_KEY;
        expect_set("remote mac encryption-key index " + index + " key " + key,
                   "REMOTE_NEPONU_encryption_set_key(0, 5, " + index + ", " + key + ") = 0");
        expect_show(show, "key: " + key + " \r\n", get + key);
    }
    EXPECT_EQ(type("show remote mac encryption-key index 0"), "key: " + std::string(KEY) + " \r\n");
}

TEST_F(RemoteEncryption, KeyIsThirtyTwoDigitsInEitherCase)
{
    journal();
    // What follows the digits is not looked at.
    expect_set("remote mac encryption-key index 1 key FFEEDDCCBBAA998877665544332211000x",
               std::string("REMOTE_NEPONU_encryption_set_key(0, 5, 1, ") + OTHER_KEY + ") = 0");
    for (const char* key : {"ffeeddccbbaa9988776655443322110", "gfeeddccbbaa99887766554433221100", "00"}) {
        EXPECT_EQ(type(std::string("remote mac encryption-key index 1 key ") + key),
                  "Error reading ENCRYPTION_KEY parameter for command from input, aborting\r\n");
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(RemoteEncryption, ActiveKey)
{
    const Show show = remote_show("mac encryption-active-key");
    expect_show(show, "index: 0 \r\n", "REMOTE_NEPONU_encryption_get_active_key(0, 5) = 0 -> 0");
    expect_set("remote mac encryption-active-key index 1", "REMOTE_NEPONU_encryption_set_active_key(0, 5, 1) = 0");
    expect_show(show, "index: 1 \r\n", "REMOTE_NEPONU_encryption_get_active_key(0, 5) = 0 -> 1");
}

TEST_F(RemoteEncryption, IndexOutsideTheGrammar)
{
    const std::string range = "Error in range of index parameter for command from input min:0 max:1, aborting\r\n";
    EXPECT_EQ(call(remote_encryption_key, {"2", KEY}), range);
    EXPECT_EQ(result, -1);
    EXPECT_EQ(call(remote_encryption_active_key, {"2"}), range);
    EXPECT_EQ(result, -1);
    EXPECT_EQ(call(show_remote_encryption_key, {"2"}), range);
    EXPECT_EQ(result, -1);
    EXPECT_EQ(call(show_remote_encryption_key, {"0", "5", "-1"}),
              "Error reading negative value of index parameter from input, aborting\r\n");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(RemoteEncryption, RunningEncryptionKeepsModeAndActiveKey)
{
    expect_bad_configuration("remote mac encryption-state direction downlink"); // there is no key
    type(std::string("remote mac encryption-key index 0 key ") + KEY);
    type("remote mac encryption-state direction downlink");
    expect_bad_configuration("remote oam-api encryption-mode mode triple-churning");
    expect_bad_configuration(std::string("remote mac encryption-key index 0 key ") + OTHER_KEY);
    expect_bad_configuration("remote mac encryption-active-key index 1"); // it has not been set
    expect_set(std::string("remote mac encryption-key index 1 key ") + OTHER_KEY,
               std::string("REMOTE_NEPONU_encryption_set_key(0, 5, 1, ") + OTHER_KEY + ") = 0");
    expect_set("remote mac encryption-active-key index 1", "REMOTE_NEPONU_encryption_set_active_key(0, 5, 1) = 0");
    expect_set(std::string("remote mac encryption-key index 0 key ") + OTHER_KEY,
               std::string("REMOTE_NEPONU_encryption_set_key(0, 5, 0, ") + OTHER_KEY + ") = 0");
}

TEST_F(RemoteEncryption, ChurningIsForWhatTheOltSends)
{
    type(std::string("remote mac encryption-key index 0 key ") + KEY);
    type("remote oam-api encryption-mode mode triple-churning");
    expect_bad_configuration("remote mac encryption-state direction uplink-and-downlink");
    expect_set("remote mac encryption-state direction downlink", "REMOTE_NEPONU_encryption_set_state(0, 5, 1) = 0");
}

TEST_F(RemoteEncryption, SettingsEndWithTheRegistration)
{
    type(std::string("remote mac encryption-key index 0 key ") + KEY);
    type("remote mac encryption-state direction downlink");
    ASSERT_TRUE(sdk_sim::remove_olt(0));
    ASSERT_TRUE(sdk_sim::return_olt(0));
    sdk_sim::advance_clock(10000);
    EXPECT_EQ(type("show remote mac encryption-state"), "direction: off \r\n");
    EXPECT_EQ(type("show remote mac encryption-key index 0"), "key: " + std::string(32, '0') + " \r\n");
}

TEST_F(RemoteEncryption, BroadcastSetsAllThatAnswer)
{
    enter_onu(4095);
    expect_set("remote mac encryption-configuration mirror enable bypass enable",
               "REMOTE_NEPONU_encryption_set_configuration(0, 4095, 1, 1) = 0");
    EXPECT_EQ(type("show remote mac encryption-configuration"), failure("ONU not available", -13015));
    for (const int16_t onu_id : {5, 254}) {
        enter_onu(onu_id);
        EXPECT_EQ(type("show remote mac encryption-configuration"),
                  "encryption_mirror_enable: Enable \r\nencryption_bypass_enable: Enable \r\n");
    }
}

TEST_F(RemoteEncryption, FailedCalls)
{
    const std::pair<std::string, const char*> commands[] = {
        {"show remote mac encryption-configuration", "REMOTE_NEPONU_encryption_get_configuration"},
        {"remote mac encryption-configuration mirror enable bypass enable",
         "REMOTE_NEPONU_encryption_set_configuration"},
        {"show remote oam-api encryption-mode", "REMOTE_NEPONU_ENCRYPTION_get_mode"},
        {"remote oam-api encryption-mode mode ae-aes", "REMOTE_NEPONU_ENCRYPTION_set_mode"},
        {"show remote mac encryption-state", "REMOTE_NEPONU_encryption_get_state"},
        {"remote mac encryption-state direction off", "REMOTE_NEPONU_encryption_set_state"},
        {"show remote mac encryption-key index 0", "REMOTE_NEPONU_encryption_get_key"},
        {std::string("remote mac encryption-key index 0 key ") + KEY, "REMOTE_NEPONU_encryption_set_key"},
        {"show remote mac encryption-active-key", "REMOTE_NEPONU_encryption_get_active_key"},
        {"remote mac encryption-active-key index 0", "REMOTE_NEPONU_encryption_set_active_key"}};
    for (const auto& [line, operation] : commands)
        expect_remote_failures(line, operation);
}

} // namespace
