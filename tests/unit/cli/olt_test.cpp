// SPDX-License-Identifier: Apache-2.0
#include "olt/olt.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "CLI_GENERAL/general.h"
#include "console_fixture.h"

namespace {

using Calls = std::vector<std::string>;

constexpr const char* READ_ERROR = "Error reading OLT_id parameter for command from input, aborting\r\n";
constexpr const char* RANGE_ERROR =
    "Error in range of OLT_id parameter for command from input min:-32767 max:32767, aborting\r\n";
constexpr const char* NOT_EXIST = "Command return error.\r\nOLT not exist (error code : -1003)\r\n";

std::string refusal(int olt_id)
{
    return "OLT id (" + std::to_string(olt_id) +
           ") doesn't exist. Can't enter to olt CLI mode with this parameter.\r\n";
}

class Olt : public Console {};

// --- Contexts ----------------------------------------------------------------------------------------------------

TEST_F(Olt, Entering)
{
    session->olt_id = 7;
    for (const char* word : {"0", "0x0", "00"}) {
        enter(CONFIG_NODE, 7);
        EXPECT_EQ(type(std::string("olt ") + word), "");
        EXPECT_EQ(result, 0);
        EXPECT_EQ(session->node, OLT_NODE);
        EXPECT_EQ(session->olt_id, 0);
        EXPECT_EQ(journal(), Calls{"Olt_exists(0) = 1"});
    }
}

TEST_F(Olt, EnteringAnAbsentOltIsRefusedWithSuccess)
{
    const std::vector<std::pair<const char*, int>> cases = {
        {"1", 1}, {"9", 9}, {"0xf", 15}, {"16", 16}, {"-5", -5}, {"0x7FFF", 32767}, {"-32767", -32767}};
    for (const auto& [word, olt_id] : cases) {
        EXPECT_EQ(type(std::string("olt ") + word), refusal(olt_id));
        EXPECT_EQ(result, 0);
        EXPECT_EQ(session->node, CONFIG_NODE);
        EXPECT_EQ(session->olt_id, 0);
        EXPECT_EQ(journal(), Calls{"Olt_exists(" + std::to_string(olt_id) + ") = 0"});
    }
}

TEST_F(Olt, OltIndexConversion)
{
    const std::vector<std::pair<const char*, const char*>> cases = {
        {"3x", READ_ERROR},
        {"x", READ_ERROR},
        {"\x01"
         "3",
         READ_ERROR},
        {"", READ_ERROR},
        {"0x", READ_ERROR},
        {"0x8000", RANGE_ERROR},
        {"32768", RANGE_ERROR},
        {"-32768", RANGE_ERROR},
        {"65536", RANGE_ERROR},
        {"99999999999", READ_ERROR},
        {"0x100000000", READ_ERROR},
    };
    for (cmd_handler* handler :
         {olt_node_config, olt_reset, olt_recovery, show_olt_version, show_olt_parameters, show_olt_grant_filtering}) {
        for (const auto& [word, message] : cases) {
            EXPECT_EQ(call(handler, {word}), message) << word;
            EXPECT_EQ(result, -1);
        }
    }
    for (const auto& [word, message] : cases) {
        EXPECT_EQ(call(olt_add, {word, "00-0a-c4-00-00-02"}), message) << word;
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(journal(), Calls{});
    EXPECT_EQ(session->node, CONFIG_NODE);
}

TEST_F(Olt, AnIndexHasSixteenBitsWithASign)
{
    EXPECT_EQ(type("olt 0x7FFF"), refusal(32767)); // read, and no such OLT
    EXPECT_EQ(result, 0);
    EXPECT_EQ(type("olt 0x8000"), RANGE_ERROR);
    EXPECT_EQ(result, -1);
    EXPECT_EQ(type("olt -5"), refusal(-5));
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), (Calls{"Olt_exists(32767) = 0", "Olt_exists(-5) = 0"}));
}

TEST_F(Olt, AnIndexIsANumberFromItsFirstCharacterToItsLast)
{
    EXPECT_EQ(type("olt 3x"), READ_ERROR);
    EXPECT_EQ(result, -1);
    EXPECT_EQ(call(olt_node_config, {"\x1f"
                                     "3"}),
              READ_ERROR);
    EXPECT_EQ(result, -1);
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(Olt, SubContextsKeepTheOlt)
{
    const std::vector<std::pair<const char*, int>> cases = {
        {"pon", OLT_PON_NODE}, {"cni", CNI_NODE}, {"fw-craft", OLT_FW_CRAFT_NODE}};
    for (const auto& [word, node] : cases) {
        enter(OLT_NODE);
        session->olt_id = 0;
        EXPECT_EQ(type(word), "");
        EXPECT_EQ(result, 0);
        EXPECT_EQ(session->node, node);
        EXPECT_EQ(session->olt_id, 0);
        session->event_notify = 0;
        type("exit");
        EXPECT_EQ(session->node, OLT_NODE);
    }
}

TEST_F(Olt, EndLeavesEveryContextForTheConfigurationNode)
{
    for (const int node : {OLT_NODE, OLT_PON_NODE, CNI_NODE, OLT_FW_CRAFT_NODE, LLID_NODE, BC_LLID_NODE, ONU_NODE,
                           ONU_PON_NODE, UNI_NODE, DBA_INTERNAL_NODE, DBA_VIREO4_NODE}) {
        enter(node);
        EXPECT_EQ(type("end"), "");
        EXPECT_EQ(session->node, CONFIG_NODE) << node;
    }
    type("end");
    EXPECT_EQ(session->node, ENABLE_NODE);
    enter(OLT_NODE);
    type("exit");
    EXPECT_EQ(session->node, CONFIG_NODE);
}

TEST_F(Olt, FirmwareConsole)
{
    for (const uint8_t before : {0, 1}) {
        enter(OLT_NODE);
        session->event_notify = before;
        journal();
        EXPECT_EQ(type("fw-craft"), "");
        EXPECT_EQ(result, 0);
        EXPECT_EQ(session->event_notify, 1);
        EXPECT_EQ(session->event_notify_saved, before);
        EXPECT_EQ(journal(),
                  (Calls{"Set_logging_configuration(8, 1, 1, 0) = 0", "NEP_send_cli_command(0, 1, \"\\n\") = 0"}));
        type("version 1");
        EXPECT_EQ(journal(), Calls{"NEP_send_cli_command(0, 1, \"version 1\\n\") = 0"});
        EXPECT_EQ(session->node, OLT_FW_CRAFT_NODE);
        type("exit");
        EXPECT_EQ(session->node, OLT_NODE);
        EXPECT_EQ(session->event_notify, before);
    }
}

TEST_F(Olt, TheFirmwareAnswersUntilTheContextIsLeft)
{
    sdk_sim::set_firmware_console([](const char* text) { CLI_print(text); });
    sdk_sim::start();
    const auto answer_to = [this](const char* line) {
        std::string answer = type(line);
        sdk_sim::drain_events();
        return answer + engine::take_output(session);
    };
    enter(OLT_NODE);
    EXPECT_EQ(answer_to("fw-craft"), "fw0>  \r\n");
    EXPECT_EQ(answer_to("temperature"), "45.0 C \r\n");
    EXPECT_EQ(answer_to("show olt parameters"), "unknown command, try help \r\n");
    EXPECT_EQ(answer_to(""), "fw0>  \r\n");
    type("exit");
    EXPECT_EQ(session->node, OLT_NODE);
    NEP_send_cli_command(0, 1, "temperature\n");
    sdk_sim::drain_events();
    EXPECT_EQ(engine::take_output(session), ""); // not notified any more
}

TEST_F(Olt, FirmwareConsoleOpensWhateverTheSdkSays)
{
    enter(OLT_NODE);
    inject("Set_logging_configuration", -5);
    inject("NEP_send_cli_command", -2);
    EXPECT_EQ(type("fw-craft"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(session->node, OLT_FW_CRAFT_NODE);
    type("exit");
}

TEST_F(Olt, AFirmwareThatCannotBeReachedIsReported)
{
    enter(OLT_NODE);
    type("fw-craft");
    inject("NEP_send_cli_command", -2);
    EXPECT_EQ(type("temperature"), "Command return error.\r\ntime out (error code : -2)\r\n");
    EXPECT_EQ(result, -2);
    EXPECT_EQ(session->node, OLT_FW_CRAFT_NODE);
    EXPECT_EQ(type("temperature"), "");
    EXPECT_EQ(result, 0);
    type("exit");
}

// --- Parameters --------------------------------------------------------------------------------------------------

// The record that a setting hands over differs from all-ones in one field only: the journal shows what differs.
TEST_F(Olt, EachSettingChangesOneField)
{
    enter(OLT_NODE);
    const std::vector<std::pair<const char*, const char*>> cases = {
        {"set max-rtt 12000", "max_rtt=12000"},
        {"set max-rtt 65534", "max_rtt=65534"},
        {"set min-rtt 0", "min_rtt=0"},
        {"set min-rtt 11999", "min_rtt=11999"},
        {"set baud-rate 1200", "uart_baud_rate=0"},
        {"set baud-rate 2400", "uart_baud_rate=1"},
        {"set baud-rate 4800", "uart_baud_rate=2"},
        {"set baud-rate 9600", "uart_baud_rate=3"},
        {"set baud-rate 14400", "uart_baud_rate=4"},
        {"set baud-rate 19200", "uart_baud_rate=5"},
        {"set baud-rate 28800", "uart_baud_rate=6"},
        {"set baud-rate 38400", "uart_baud_rate=7"},
        {"set baud-rate 57600", "uart_baud_rate=8"},
        {"set baud-rate 115200", "uart_baud_rate=9"},
        {"set baud-rate 230400", "uart_baud_rate=10"},
        {"set baud-rate 460800", "uart_baud_rate=11"},
        {"set baud-rate default", "uart_baud_rate=9"},
        {"set llid-assignment all-llid", "llid_assignment=0"},
        {"set llid-assignment odd-llid", "llid_assignment=1"},
        {"set llid-assignment even-llid", "llid_assignment=2"},
        {"set sled-strobe enable", "sled_strobe=1"},
        {"set sled-strobe disable", "sled_strobe=0"},
        {"set sled-mute enable", "sled_mute=1"},
        {"set sled-mute disable", "sled_mute=0"},
        {"set i2c-speed standard", "i2c_speed=94"},
        {"set i2c-speed fast", "i2c_speed=21"},
        {"set grant-filtering", "grant_filtering=1"},
        {"no grant-filtering", "grant_filtering=0"},
        {"set oui-parameters 0x12ab", "oui_1g=4779"},
        {"set oui-parameters 4779 onu-type 1g", "oui_1g=4779"},
        {"set oui-parameters 0xffffff onu-type 10g", "oui_10g=16777215"},
        {"set vsi-parameter 7 onu-type 1g", "vendor_specific_1g=7"},
        {"set vsi-parameter 0x7fffffff onu-type 10g", "vendor_specific_10g=2147483647"},
    };
    for (const auto& [line, field] : cases) {
        EXPECT_EQ(type(line), "") << line;
        EXPECT_EQ(result, 0) << line;
        EXPECT_EQ(journal(), Calls{std::string("NEP_update_olt_parameters(0, {") + field + "}) = 0"}) << line;
    }
}

TEST_F(Olt, TheDefaultBaudRateIs115200)
{
    enter(OLT_NODE);
    type("set baud-rate default");
    EXPECT_EQ(journal(), Calls{"NEP_update_olt_parameters(0, {uart_baud_rate=9}) = 0"});
    EXPECT_NE(type("show olt parameters").find("UART baud rate: 115200 \r\n"), std::string::npos);
}

TEST_F(Olt, TheStrobeIsTheOnlyFieldThatItsCommandChanges)
{
    enter(OLT_NODE);
    EXPECT_EQ(type("set sled-strobe enable"), "");
    EXPECT_EQ(journal(), Calls{"NEP_update_olt_parameters(0, {sled_strobe=1}) = 0"});
}

TEST_F(Olt, SettingsRefuseOtherWords)
{
    struct Case {
        cmd_handler* handler;
        std::vector<std::string> words;
        const char* message;
    };
    const std::vector<Case> cases = {
        {set_baud_rate, {"300"}, "Error reading baud_rate parameter (of the type baud_rate), aborting\r\n"},
        {set_llid_assignment,
         {"all"},
         "Error reading llid_assignment parameter (of the type llid_assignment), aborting\r\n"},
        {set_i2c_speed, {"faster"}, "Error reading i2c_speed parameter (of the type i2c_speed), aborting\r\n"},
        {set_sled_strobe, {"on"}, "Error reading sled_strobe parameter (of the type enable_disable), aborting\r\n"},
        {set_sled_mute, {"on"}, "Error reading sled_mute parameter (of the type enable_disable), aborting\r\n"},
        {set_sled_strobe,
         {"enableenable"},
         "Error reading sled_strobe parameter, internal buffer is too short, aborting!\r\n"},
        {set_sled_mute,
         {"0123456789"},
         "Error reading sled_mute parameter, internal buffer is too short, aborting!\r\n"},
        {set_sled_mute, {"012345678"}, "Error reading sled_mute parameter (of the type enable_disable), aborting\r\n"},
        {set_sled_strobe, {""}, "Error reading sled_strobe parameter for command from input, aborting\r\n"},
        {set_sled_mute, {" "}, "Error reading sled_mute parameter for command from input, aborting\r\n"},
        {set_oui_parameter, {"x"}, "Error reading OUI_PARAM parameter for command from input, aborting\r\n"},
        {set_oui_parameter, {"-1"}, "Error reading negative value of OUI_PARAM parameter from input, aborting\r\n"},
        {set_oui_parameter, {"1", "2g"}, "Error reading onu_type parameter (of the type onu_type), aborting\r\n"},
        {set_vsi_parameter_per_type,
         {"0x1ffffffff", "1g"},
         "Error reading VSI_PARAM parameter for command from input, aborting\r\n"},
        {set_vsi_parameter_per_type,
         {"1", ""},
         "Error reading onu_type parameter (of the type onu_type), aborting\r\n"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(call(c.handler, c.words), c.message);
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(Olt, TheGrammarRefusesNumbersOutOfRange)
{
    enter(OLT_NODE);
    for (const char* line : {"set max-rtt 65535", "set max-rtt 99999", "set max-rtt -1", "set max-rtt 0x10",
                             "set min-rtt 32768", "set max-rtt 12k"}) {
        EXPECT_NE(type(line).find("% "), std::string::npos) << line;
        EXPECT_EQ(status, engine::MatchStatus::Unknown) << line;
    }
    type("set max-rtt");
    EXPECT_EQ(status, engine::MatchStatus::Incomplete);
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(Olt, SettingsReportFailures)
{
    enter(OLT_NODE);
    for (const char* line :
         {"set max-rtt 1", "set min-rtt 1", "set baud-rate 1200", "set llid-assignment all-llid",
          "set sled-strobe enable", "set sled-mute enable", "set i2c-speed fast", "set grant-filtering",
          "no grant-filtering", "set oui-parameters 1", "set vsi-parameter 1 onu-type 1g"}) {
        inject("NEP_update_olt_parameters", -1005);
        EXPECT_EQ(type(line), "Command return error.\r\nnot supported in current HW version (error code : -1005)\r\n");
        EXPECT_EQ(result, -1005) << line;
    }
    enter(OLT_NODE, 1);
    EXPECT_EQ(type("set max-rtt 1"), NOT_EXIST);
    EXPECT_EQ(result, -1003);
}

constexpr const char* LISTING = "OLT_id: 0 \r\n"
                                "Grant filtering: Enable \r\n"
                                "Max rtt: 12000 \r\n"
                                "Min rtt: 5 \r\n"
                                "OLT Mac Address: 0x00-0x0a-0xc4-0x00-0x00-0x01- \r\n"
                                "OUI 1G: 0x12ab \r\n"
                                "OUI 10G: 0xffffff \r\n"
                                "vendor specific 1G: 0x7 \r\n"
                                "vendor specific 10G: 0x0 \r\n"
                                "LLID assignment: even-llid \r\n"
                                "sled strobe: Enable \r\n"
                                "sled mute: Disable \r\n"
                                "I2C speed: fast \r\n"
                                "UART baud rate: 115200 \r\n";

TEST_F(Olt, ParametersAreListed)
{
    enter(OLT_NODE);
    for (const char* line :
         {"set max-rtt 12000", "set min-rtt 5", "set baud-rate default", "set llid-assignment even-llid",
          "set sled-strobe enable", "set sled-mute disable", "set i2c-speed fast", "set grant-filtering",
          "set oui-parameters 0x12ab", "set oui-parameters 0xffffff onu-type 10g", "set vsi-parameter 7 onu-type 1g"}) {
        EXPECT_EQ(type(line), "");
    }
    EXPECT_EQ(type("show olt parameters"), LISTING);
    EXPECT_EQ(type("show grant-filtering"), "OLT_id: 0 \r\nGrant filtering: Enable \r\n");
    enter(CONFIG_NODE, 5); // the global form takes the OLT from its argument
    EXPECT_EQ(type("show olt parameters 0"), LISTING);
    EXPECT_EQ(type("show olt parameters 0x0"), LISTING);
    EXPECT_EQ(type("show olt grant-filtering 0"), "OLT_id: 0 \r\nGrant filtering: Enable \r\n");
}

TEST_F(Olt, EveryWordIsReadBack)
{
    enter(OLT_NODE);
    const std::vector<std::pair<const char*, const char*>> cases = {
        {"set baud-rate 1200", "UART baud rate: 1200 \r\n"},
        {"set baud-rate 57600", "UART baud rate: 57600 \r\n"},
        {"set baud-rate 460800", "UART baud rate: 460800 \r\n"},
        {"set llid-assignment all-llid", "LLID assignment: all-llid \r\n"},
        {"set llid-assignment odd-llid", "LLID assignment: odd-llid \r\n"},
        {"set sled-strobe disable", "sled strobe: Disable \r\n"},
        {"set sled-mute enable", "sled mute: Enable \r\n"},
        {"set i2c-speed standard", "I2C speed: standard \r\n"},
        {"no grant-filtering", "Grant filtering: Disable \r\n"},
    };
    for (const auto& [set, line] : cases) {
        EXPECT_EQ(type(set), "");
        EXPECT_NE(type("show olt parameters").find(line), std::string::npos) << set;
    }
}

TEST_F(Olt, ValuesOutsideTheTablesAreInvalid)
{
    load("[[olt]]\nid = 0\nmac = \"00-0a-c4-00-00-01\"\n"
         "[olt.parameters]\ni2c_speed = 20\nuart_baud_rate = 12\nllid_assignment = 3\n");
    enter(OLT_NODE);
    const std::string listing = type("show olt parameters");
    for (const char* line :
         {"I2C speed: Invalid value \r\n", "UART baud rate: Invalid value \r\n", "LLID assignment: Invalid value \r\n"})
        EXPECT_NE(listing.find(line), std::string::npos) << line;
}

TEST_F(Olt, ShowsReportFailures)
{
    enter(CONFIG_NODE);
    for (const char* line : {"show olt parameters 1", "show olt grant-filtering 1", "show olt version 1",
                             "show olt parameters 99", "show olt version -3"}) {
        EXPECT_EQ(type(line), NOT_EXIST) << line;
        EXPECT_EQ(result, -1003);
    }
    enter(OLT_NODE);
    inject("NEP_get_olt_parameters", -2, 2);
    inject("NEP_get_olt_versions", -2);
    for (const char* line : {"show olt parameters", "show grant-filtering", "show version"}) {
        EXPECT_EQ(type(line), "Command return error.\r\ntime out (error code : -2)\r\n");
        EXPECT_EQ(result, -2);
    }
}

// --- Versions ----------------------------------------------------------------------------------------------------

TEST_F(Olt, Versions)
{
    load("[[olt]]\nid = 0\nmac = \"00-0a-c4-00-00-01\"\n[olt.device]\nname = \"PX\\u0001%s\"\n"
         "hardware_major = 10\nhardware_minor = 255\nllids_supported = 65535\nsystem_port_mac_type = 5\n"
         "firmware_version = \"4.1.12.65535\"\nhost_version = \"0.0.0.1\"\n");
    const std::string expected = "OLT id: 0 \r\n"
                                 "Device: PX?%s \r\n" // what a device says is neither a format nor control bytes
                                 "Hardware version: A.FF\r\n"
                                 "System port MAC: XAUI \r\n"
                                 "LLIDs (ports) supported: 65535 \r\n"
                                 "Firmware version: 4.1.12.65535\r\n"
                                 "Host version: 0.0.0.1\r\n";
    for (const int node : {VIEW_NODE, ENABLE_NODE, CONFIG_NODE}) {
        enter(node, 9);
        EXPECT_EQ(type("show olt version 0"), expected);
        EXPECT_EQ(result, 0);
    }
    enter(OLT_NODE);
    EXPECT_EQ(type("show version"), expected);
}

// --- Reset and recovery ------------------------------------------------------------------------------------------

TEST_F(Olt, AfterAResetTheOltIsRefused)
{
    EXPECT_EQ(type("no olt 0"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"NEP_reset_olt(0) = 0"});
    EXPECT_EQ(type("olt 0"), refusal(0));
    EXPECT_EQ(type("no olt 0"), NOT_EXIST);
    EXPECT_EQ(result, -1003);
}

TEST_F(Olt, Recovery)
{
    EXPECT_EQ(type("olt 0 recovery"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal().front().substr(0, 25), "NEP_olt_host_recovery(0) ");
    EXPECT_EQ(type("olt 1 recovery"), NOT_EXIST);
    EXPECT_EQ(result, -1003);
}

TEST_F(Olt, ARecoveryThatDoesNotEndIsAFailureWithCodeZero)
{
    load("[[olt]]\nid = 0\nmac = \"00-0a-c4-00-00-01\"\nrecovery_fails = true\n");
    EXPECT_EQ(type("olt 0 recovery"), "Command return error.\r\nexit ok (error code : 0)\r\n");
    EXPECT_EQ(result, 0);
}

// --- Adding ------------------------------------------------------------------------------------------------------

class OltAdd : public Olt {
  protected:
    OltAdd()
    {
        char name[] = "/tmp/epon-image-XXXXXX";
        folder = mkdtemp(name);
        image = folder / "image";
        std::ofstream(image) << "firmware";
        empty = folder / "empty";
        std::ofstream{empty};
    }
    ~OltAdd() override
    {
        std::filesystem::remove_all(folder);
    }

    std::filesystem::path folder;
    std::string image;
    std::string empty;
};

constexpr const char* ADD_FAILURE = "Add OLT 1 failure: Execution failure\r\n";

TEST_F(OltAdd, FromEachLocation)
{
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"flash", "{location=0,image=null,size=0}"},
        {"file " + image, "{location=1,image=\"" + image + "\",size=0}"},
        {"memory " + image, "{location=2,image=6669726d77617265,size=8}"},
    };
    for (const auto& [source, record] : cases) {
        load(std::string(NETWORK));
        EXPECT_EQ(type("olt 1 00-0A-c4-1-2-3 image " + source), "");
        EXPECT_EQ(result, 0);
        EXPECT_EQ(journal(), Calls{"NEP_add_olt(1, 00-0a-c4-01-02-03, " + record + ") = 0"});
        EXPECT_EQ(type("olt 1"), "");
        EXPECT_EQ(session->node, OLT_NODE);
        enter(CONFIG_NODE);
        journal();
    }
}

TEST_F(OltAdd, TheNameNullIsNoImage)
{
    for (const char* location : {"file", "memory"}) {
        EXPECT_EQ(type(std::string("olt 1 00-0a-c4-1-2-3 image ") + location + " NULL"), ADD_FAILURE);
        EXPECT_EQ(result, -4);
        const std::string code = location == std::string("file") ? "1" : "2";
        EXPECT_EQ(journal(),
                  Calls{"NEP_add_olt(1, 00-0a-c4-01-02-03, {location=" + code + ",image=null,size=0}) = -4"});
    }
}

TEST_F(OltAdd, FilesThatCannotBeLoaded)
{
    for (const std::string& path : {std::string(folder), image + "-absent"}) {
        EXPECT_EQ(type("olt 1 00-0a-c4-1-2-3 image memory " + path), "file_path: Error opening the file \r\n");
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(OltAdd, AnEmptyImageIsTheSdksToRefuse)
{
    EXPECT_EQ(type("olt 1 00-0a-c4-1-2-3 image memory " + empty), ADD_FAILURE);
    EXPECT_EQ(result, -4);
    EXPECT_EQ(journal(), Calls{"NEP_add_olt(1, 00-0a-c4-01-02-03, {location=2,image=,size=0}) = -4"});
}

TEST_F(OltAdd, AFailureNamesTheOlt)
{
    EXPECT_EQ(type("olt 0 00-0a-c4-1-2-3 image flash"), "Add OLT 0 failure: Execution failure\r\n"); // present already
    inject("NEP_add_olt", -6);
    EXPECT_EQ(type("olt 1 00-0a-c4-1-2-3 image memory " + image), ADD_FAILURE);
    EXPECT_EQ(result, -6);
}

TEST_F(OltAdd, MacAddresses)
{
    const std::string wrong_length = "Error reading mac_address has wrong length, aborting\r\n";
    const std::string malformed = "Error reading OLT MAC address parameter from the MAC address string, aborting\r\n";
    const std::vector<std::pair<const char*, std::string>> cases = {
        {"", "Error reading mac_address parameter for command from input, aborting\r\n"},
        {"00-0a-c4-01-02-033", wrong_length},
        {"zz-zz-zz-zz-zz-zz-zz", wrong_length}, // refused before any parsing
        {"00-0a-c4-01-02", malformed},
        {"zz-0a-c4-01-02-03", malformed},
        {"00:0a:c4:01:02:03", malformed},
    };
    for (const auto& [text, message] : cases) {
        EXPECT_EQ(call(olt_add, {"1", text}), message) << text;
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(OltAdd, AnAddressOfEighteenCharactersIsRefusedBeforeItIsParsed)
{
    for (const char* text : {"00-0a-c4-01-02-033", "no-hexadecimal-at-all"}) {
        EXPECT_EQ(type(std::string("olt 1 ") + text + " image flash"),
                  "Error reading mac_address has wrong length, aborting\r\n");
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(OltAdd, LocationsOutsideTheTable)
{
    EXPECT_EQ(call(olt_add, {"1", "00-0a-c4-01-02-03", "tape", "x"}),
              "Error reading image parameter (of the type image_location), aborting\r\n");
    EXPECT_EQ(result, -1);
}

} // namespace
