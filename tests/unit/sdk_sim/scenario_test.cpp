// SPDX-License-Identifier: Apache-2.0
// Scenarios: what can be described, what is refused, and with which words.
#include <chrono>
#include <cstring>
#include <fstream>
#include <sstream>

#include <unistd.h>

#include "network_fixture.h"

namespace {

using ScenarioTest = NetworkTest;

#define OLT "[[olt]]\nid = 0\nmac = \"02-00-00-00-00-00\"\n"
#define ONU OLT "[[olt.onu]]\nid = 0\nmac = \"02-00-00-00-01-00\"\n"

TEST_F(ScenarioTest, ErrorsNameTheLineAndWhatWasExpected)
{
    struct Case {
        const char* toml;
        const char* error; // behind "bad.toml:"
    };
    const Case cases[] = {
        {"name = 5\n", "1: name: expected a string, or an array of octets 1-255"},
        {"name = \"123456789012345678901234567890123\"\n", "1: name: expected at most 32 octets"},
        {"\"a\\n\\u001b[2J\\u009bx\" = 1\n",
         "1: unknown key \"a\\n\\u001b[2J\\u009bx\"; expected one of clock, ctc_stack, life, name, olt"},
        {"[.a]\n", "1: Error while parsing key: expected bare key starting character or string delimiter, saw '.'"},
        {"a = tru\n", "1: Error while parsing boolean: expected 'true', saw 'tru\\n'"},
        {"\xc8\x87 = 1\n", "1: Error while parsing root table: expected keys, tables, whitespace or comments, saw "
                           "'\xc8\x87'"},
        {"\n\ncolour = 1\n", "3: unknown key \"colour\"; expected one of clock, ctc_stack, life, name, olt"},
        {"clock = 5\n", "1: clock: expected a table"},
        {"clock = { speed = -1 }\n", "1: speed: expected a number 0 to 1000"},
        {"clock = { speed = \"fast\" }\n", "1: speed: expected a number 0 to 1000"},
        {"clock = { speed = nan }\n", "1: speed: expected a number 0 to 1000"},
        {"[life]\nabsence = -0.5\n", "2: absence: expected a number 0 to 3.1536e+07"},
        {"[life]\nseed = 1.5\n", "2: seed: expected a number 0-9223372036854775807"},
        {"[[olt]]\n", "1: id: expected a number, or first and count"},
        {"[[olt]]\nid = 0\n", "1: mac: expected a MAC address"},
        {"[[olt]]\nid = 16\nmac = \"02-00-00-00-00-00\"\n", "2: id: expected a number 0-15"},
        {"[[olt]]\nid = 0\nfirst = 0\nmac = \"02-00-00-00-00-00\"\n", "2: id: expected a number, or first and count"},
        {"[[olt]]\nid = 0\ncount = 2\nmac = \"02-00-00-00-00-00\"\n",
         "3: unknown key \"count\"; expected one of dba, device, firmware, id, mac, onu, parameters, pon_modules, "
         "present, recovery_fails, settings, xaui_redundancy"},
        {"[[olt]]\nfirst = 10\ncount = 7\nmac = \"02-00-00-00-00-00\"\n", "3: count: expected a number 1-6"},
        {"[[olt]]\nid = 0\nmac = \"02-00-00-00-00\"\n", "3: mac: expected a MAC address \"aa-bb-cc-dd-ee-ff\""},
        {"[[olt]]\nid = 0\nmac = \"02:00:00:00:00:00\"\n", "3: mac: expected a MAC address \"aa-bb-cc-dd-ee-ff\""},
        {OLT OLT, "5: id: expected an OLT that is not described twice, and 0 is"},
        {OLT "present = 1\n", "4: present: expected true or false"},
        {OLT "[olt.device]\nname = \"12345678901234567890123456789012\"\n", "5: name: expected at most 31 octets"},
        {OLT "[olt.device]\nname = [65, 256]\n", "5: name: expected a string, or an array of octets 1-255"},
        {OLT "[olt.device]\nfirmware_version = \"1.2.3\"\n",
         "5: firmware_version: expected four numbers 0-65535 with dots between: \"4.1.0.7\""},
        {OLT "[olt.device]\nhost_version = \"1.2.3.4.5\"\n",
         "5: host_version: expected four numbers 0-65535 with dots between: \"4.1.0.7\""},
        {OLT "[olt.device]\nhost_version = \"1.2.3.65536\"\n",
         "5: host_version: expected four numbers 0-65535 with dots between: \"4.1.0.7\""},
        {OLT "[olt.parameters]\nmax_rtt = 65535\n", "5: max_rtt: expected a number 0-65534"},
        {OLT "[olt.parameters]\nmin_rtt = 20000\n", "5: min_rtt: expected at most max_rtt"},
        {OLT "[olt.parameters]\nmaxrtt = 1\n",
         "5: unknown key \"maxrtt\"; expected one of grant_filtering, i2c_speed, llid_assignment, max_rtt, min_rtt, "
         "oui_10g, oui_1g, sled_mute, sled_strobe, uart_baud_rate, vendor_specific_10g, vendor_specific_1g"},
        {OLT "[olt.xaui_redundancy]\nactive_channel = 2\n", "5: active_channel: expected a number 0-1"},
        {OLT "[olt.firmware]\ntemperature = 500\n", "5: temperature: expected a number -60 to 200"},
        {OLT "[olt.firmware]\nregisters = [1, 2]\n", "5: registers: expected [address, value], each 0-0xffffffff"},
        {OLT "[olt.firmware]\nregisters = [\n[1, 2],\n[1, -2]]\n",
         "7: registers: expected [address, value], each 0-0xffffffff"},
        {OLT "[olt.firmware]\nlog = \"text\"\n", "5: log: expected an array of texts"},
        {OLT "[olt.firmware]\nlog = [\"text\", 5]\n", "5: log: expected a string, or an array of octets 1-255"},
        {OLT "onu = 5\n", "4: onu: expected a table"},
        {OLT "[[olt.onu]]\nid = 255\nmac = \"02-00-00-00-01-00\"\n", "5: id: expected a number 0-254"},
        {OLT "[[olt.onu]]\nfirst = 250\ncount = 6\nmac = \"02-00-00-00-01-00\"\n", "6: count: expected a number 1-5"},
        {OLT "[[olt.onu]]\nid = 1\n", "4: mac: expected a MAC address"},
        {ONU "rate = \"100g\"\n", "7: rate: expected one of \"1g\", \"10g/1g\", \"10g\""},
        {ONU "mode = 201\n",
         "7: mode: expected one of \"unregistered\", \"registered\", \"discovered\", \"unauthorized\""},
        {ONU "rtt = 65535\n", "7: rtt: expected a number 0-65534"},
        {ONU "device = 5\n", "7: device: expected a table"},
        {ONU "[olt.onu.device]\noam_frame_length = 63\n", "8: oam_frame_length: expected a number 64-1518"},
        {ONU "[olt.onu.device]\noam_frame_length = 1519\n", "8: oam_frame_length: expected a number 64-1518"},
        {ONU "[olt.onu.device]\nreboot_counter = 16\n", "8: reboot_counter: expected a number 0-15"},
        {ONU "[olt.onu.device]\nframes_per_second = -1\n", "8: frames_per_second: expected a number 0-10000000"},
        {ONU "[olt.onu.device]\nos = 1\n",
         "8: unknown key \"os\"; expected one of adc_channel_0, adc_channel_1, firmware_version, frames_per_second, "
         "hardware_major, hardware_minor, mld_version, oam_frame_length, oam_version, os_type, os_version, "
         "reboot_counter, uni_loopback_fails"},
        {ONU "loid = \"1234567890123456789012345\"\n", "7: loid: expected at most 24 octets"},
        {ONU "[olt.onu.identity]\nvendor_id = \"12345\"\n", "8: vendor_id: expected at most 4 octets"},
        {ONU "[olt.onu.identity]\nmodel = -1\n", "8: model: expected a number 0-4294967295"},
        {ONU "[olt.onu.capabilities]\npon_interfaces = 3\n", "8: pon_interfaces: expected a number 1-2"},
        {ONU "[olt.onu.capabilities]\nprotection = \"b\"\n",
         "8: protection: expected one of \"none\", \"type-c\", \"type-d\""},
        {ONU "[[olt.onu]]\nid = 0\nmac = \"02-00-00-00-01-01\"\n",
         "8: id: expected an ONU that is not described twice, and 0 is"},
        {ONU "[[olt.onu]]\nid = 1\nmac = \"02-00-00-00-01-00\"\n",
         "4: onu: expected an address of its own for ONU 1, and ONU 0 has the same"},
    };
    for (const Case& test : cases)
        expect_load_error(test.toml, std::string("bad.toml:") + test.error);
}

TEST_F(ScenarioTest, SyntaxErrorsNameTheLine)
{
    for (const auto& [toml, line] :
         {std::pair("name = \"x\"\n[[olt]\n", 2), std::pair("a = \n", 1), std::pair("a = 1\na = 2\n", 2)}) {
        std::string error;
        EXPECT_FALSE(sdk_sim::load_scenario_text(toml, "bad.toml", &error));
        EXPECT_TRUE(error.starts_with("bad.toml:" + std::to_string(line) + ": ")) << error;
        EXPECT_EQ(error.find('\n'), std::string::npos) << error;
    }
}

TEST_F(ScenarioTest, MissingFilesAreTold)
{
    std::string error;
    EXPECT_FALSE(sdk_sim::load_scenario_file("/nowhere/network.toml", &error));
    EXPECT_EQ(error, "/nowhere/network.toml: No such file or directory");
    EXPECT_FALSE(sdk_sim::load_scenario_file("/tmp", &error));
    EXPECT_EQ(error, "/tmp: Is a directory");
}

TEST_F(ScenarioTest, FilesAreReadWithTheirName)
{
    char path[] = "/tmp/scenario_XXXXXX";
    close(mkstemp(path));
    std::ofstream(path) << "name = \"FILE\"\n";
    std::string error;
    EXPECT_TRUE(sdk_sim::load_scenario_file(path, &error)) << error;
    EXPECT_EQ(sdk_sim::network_name(), "FILE");
    std::ofstream(path) << "name = 1\n";
    EXPECT_FALSE(sdk_sim::load_scenario_file(path, &error));
    EXPECT_EQ(error, std::string(path) + ":1: name: expected a string, or an array of octets 1-255");
    unlink(path);
}

TEST_F(ScenarioTest, LoadingReplacesTheNetworkAndKeepsHandlersAndFaults)
{
    watch_events();
    ASSERT_TRUE(sdk_sim::remove_olt(0));
    ASSERT_TRUE(sdk_sim::return_olt(0));
    take_events();
    ASSERT_TRUE(sdk_sim::inject({.operation = "NEP_reset_olt", .code = -5}));
    std::string error;
    ASSERT_TRUE(sdk_sim::load_scenario_text(ONU, "other.toml", &error)) << error;
    EXPECT_EQ(sdk_sim::network_name(), "epon");
    EXPECT_EQ(Olt_exists(2), 0);
    EXPECT_NE(Olt_exists(0), 0);
    sdk_sim::advance_clock(100000);
    EXPECT_EQ(take_events(), std::vector<std::string>{}) << "timers of the former network";
    EXPECT_EQ(NEP_reset_olt(0), -5);
    EXPECT_EQ(NEP_reset_olt(0), 0);
    EXPECT_EQ(take_events().size(), 2U);
}

TEST_F(ScenarioTest, ResetIsAFreshProcess)
{
    watch_events();
    ASSERT_TRUE(sdk_sim::inject({.operation = "Olt_exists", .code = 1, .count = 9}));
    sdk_sim::reset();
    EXPECT_EQ(sdk_sim::network_name(), "epon");
    for (std::int16_t olt_id = 0; olt_id < 16; ++olt_id)
        EXPECT_EQ(Olt_exists(olt_id), 0);
    EXPECT_EQ(journal(), std::vector<std::string>{});
    std::string error;
    ASSERT_TRUE(sdk_sim::raise_event(EVENT_OLT_STATE_CHANGED, 0, "", &error));
    sdk_sim::start();
    EXPECT_EQ(take_events(), std::vector<std::string>{}) << "handlers are gone";
    std::uint16_t id = 0;
    ASSERT_EQ(NEP_assign_handler_function(5, reinterpret_cast<EventHandler>(+[] {}), &id), 0);
    EXPECT_EQ(id, 1);
}

TEST_F(ScenarioTest, RangesCountAddressesUp)
{
    std::string error;
    ASSERT_TRUE(sdk_sim::load_scenario_text("[[olt]]\nfirst = 14\ncount = 2\nmac = \"02-00-00-00-00-ff\"\n"
                                            "[[olt.onu]]\nfirst = 253\ncount = 2\nmac = \"02-00-00-00-fe-ff\"\n",
                                            "ranges.toml", &error))
        << error;
    OLT_parameters parameters;
    ASSERT_EQ(NEP_get_olt_parameters(14, &parameters), 0);
    EXPECT_EQ(parameters.mac[5], 0xFF);
    ASSERT_EQ(NEP_get_olt_parameters(15, &parameters), 0);
    EXPECT_EQ(parameters.mac[4], 1);
    EXPECT_EQ(parameters.mac[5], 0);
    struct Case {
        std::int16_t olt_id, onu_id;
        std::uint8_t mac[6];
    };
    const Case cases[] = {{14, 253, {2, 0, 0, 0, 0xFE, 0xFF}},
                          {14, 254, {2, 0, 0, 0, 0xFF, 0}},
                          {15, 253, {2, 0, 0, 0, 0xFF, 0xFF}},
                          {15, 254, {2, 0, 0, 1, 0, 0}}};
    for (const Case& test : cases) {
        std::int16_t onu_id = -1;
        EXPECT_EQ(Mac_address_exist(test.olt_id, test.mac, &onu_id), 1);
        EXPECT_EQ(onu_id, test.onu_id);
    }
}

TEST_F(ScenarioTest, FullChassisLoadsQuickly)
{
    constexpr char toml[] = "[[olt]]\nfirst = 0\ncount = 16\nmac = \"02-00-00-00-00-00\"\n"
                            "[[olt.onu]]\nfirst = 0\ncount = 255\nmac = \"02-00-00-01-00-00\"\n";
    std::string error;
    const auto begin = std::chrono::steady_clock::now();
    ASSERT_TRUE(sdk_sim::load_scenario_text(toml, "full.toml", &error)) << error;
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(1));
    std::uint8_t warned;
    EXPECT_EQ(NEP_get_onu_mode_extended(15, 254, &warned), 201);
}

TEST_F(ScenarioTest, DemoNetwork)
{
    std::string error;
    ASSERT_TRUE(sdk_sim::load_scenario_text(sdk_sim::demo_scenario(), "demo", &error)) << error;
    EXPECT_EQ(sdk_sim::network_name(), "VNS");
    const bool present[] = {true, true, false, true, false};
    for (std::int16_t olt_id = 0; olt_id < 5; ++olt_id)
        EXPECT_EQ(Olt_exists(olt_id) != 0, present[olt_id]) << olt_id;
    OLT_parameters parameters;
    ASSERT_EQ(NEP_get_olt_parameters(0, &parameters), 0);
    EXPECT_EQ(parameters.settings.max_rtt, 12500);
    std::uint8_t warned;
    const std::int32_t modes[] = {201, 201, 201, 201, 203, 200, 200, 201, 202};
    for (std::int16_t onu_id = 0; onu_id < 9; ++onu_id) {
        EXPECT_EQ(NEP_get_onu_mode_extended(0, onu_id, &warned), modes[onu_id]) << onu_id;
        EXPECT_EQ(warned, onu_id == 7) << onu_id;
        EXPECT_EQ(Get_onu_record_static_mode(0, onu_id) != 0, onu_id == 6) << onu_id;
    }
    watch_events();
    sdk_sim::advance_clock(3600000);
    EXPECT_EQ(take_events(), std::vector<std::string>{}) << "it is quiet";
}

TEST_F(ScenarioTest, DemoNamesWhatAnOnuIsByDefault)
{
    std::string error;
    ASSERT_TRUE(sdk_sim::load_scenario_text(sdk_sim::demo_scenario(), "demo", &error)) << error;
    CTC_onu_capabilities capabilities[2]; // ONU 0 has every key, ONU 1 none
    CTC_onu_capabilities_2 capabilities_2[2];
    CTC_onu_capabilities_3 capabilities_3[2];
    CTC_power_save_capabilities power_save[2];
    CTC_serial_number serial[2];
    CTC_firmware_version firmware[2];
    CTC_chipset_id chipset[2];
    for (std::int16_t onu_id = 0; onu_id < 2; ++onu_id) {
        ASSERT_EQ(CTC_STACK_get_onu_capabilities(0, onu_id, &capabilities[onu_id]), 0);
        ASSERT_EQ(CTC_STACK_get_onu_capabilities_2(0, onu_id, &capabilities_2[onu_id]), 0);
        ASSERT_EQ(CTC_STACK_get_onu_capabilities_3(0, onu_id, &capabilities_3[onu_id]), 0);
        ASSERT_EQ(CTC_STACK_get_onu_power_save_capabilities(0, onu_id, &power_save[onu_id]), 0);
        ASSERT_EQ(CTC_STACK_get_onu_serial_number(0, onu_id, &serial[onu_id]), 0);
        ASSERT_EQ(CTC_STACK_get_firmware_version_extended(0, onu_id, &firmware[onu_id]), 0);
        ASSERT_EQ(CTC_STACK_get_chipset_id(0, onu_id, &chipset[onu_id]), 0);
    }
    serial[1].onu_id[5] = 0; // the address is each ONU's own
    EXPECT_EQ(std::memcmp(&capabilities[0], &capabilities[1], sizeof capabilities[0]), 0);
    EXPECT_EQ(std::memcmp(&capabilities_2[0], &capabilities_2[1], sizeof capabilities_2[0]), 0);
    EXPECT_EQ(std::memcmp(&capabilities_3[0], &capabilities_3[1], sizeof capabilities_3[0]), 0);
    EXPECT_EQ(std::memcmp(&power_save[0], &power_save[1], sizeof power_save[0]), 0);
    EXPECT_EQ(std::memcmp(serial[0].vendor_id, serial[1].vendor_id, CTC_VENDOR_ID_SIZE), 0);
    EXPECT_EQ(serial[0].onu_model, serial[1].onu_model);
    EXPECT_EQ(std::memcmp(serial[0].onu_id, serial[1].onu_id, sizeof serial[0].onu_id), 0);
    EXPECT_EQ(std::memcmp(serial[0].hardware_version, serial[1].hardware_version, CTC_HARDWARE_VERSION_SIZE), 0);
    EXPECT_EQ(std::memcmp(serial[0].software_version, serial[1].software_version, CTC_SOFTWARE_VERSION_SIZE), 0);
    EXPECT_EQ(std::memcmp(&firmware[0], &firmware[1], sizeof firmware[0]), 0);
    EXPECT_EQ(std::memcmp(&chipset[0], &chipset[1], sizeof chipset[0]), 0);
}

TEST_F(ScenarioTest, ScenariosOfTheProjectLoad)
{
    for (const char* name : {"demo", "small_lab", "hostile", "troubled", "full_chassis", "subscribers"}) {
        std::string error;
        EXPECT_TRUE(sdk_sim::load_scenario_file(std::string(SCENARIOS) + "/" + name + ".toml", &error)) << error;
    }
    std::ifstream file(std::string(SCENARIOS) + "/demo.toml");
    std::ostringstream content;
    content << file.rdbuf();
    EXPECT_EQ(content.str(), sdk_sim::demo_scenario());
}

TEST_F(ScenarioTest, AFullChassisLoadsWithinASecond)
{
    const auto before = std::chrono::steady_clock::now();
    std::string error;
    ASSERT_TRUE(sdk_sim::load_scenario_file(SCENARIOS "/full_chassis.toml", &error)) << error;
    EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::seconds(1));
    std::uint8_t warned;
    for (std::int16_t olt_id = 0; olt_id < OLT_INDEX_LIMIT; ++olt_id)
        for (std::int16_t onu_id = 0; onu_id < ONU_INDEX_LIMIT; ++onu_id)
            EXPECT_EQ(NEP_get_onu_mode_extended(olt_id, onu_id, &warned), ONU_MODE_REGISTERED)
                << olt_id << ' ' << onu_id;
}

TEST_F(ScenarioTest, DeviceTextsMayBeAnyOctets)
{
    std::string error;
    ASSERT_TRUE(
        sdk_sim::load_scenario_text(OLT "[olt.device]\nname = [0xff, 0x1b, 0x25, 0x6e]\n", "octets.toml", &error))
        << error;
    OLT_device_versions device;
    OLT_version firmware;
    OLT_version host;
    ASSERT_EQ(NEP_get_olt_versions(0, &device, &firmware, &host), 0);
    EXPECT_STREQ(device.device_name, "\xff\x1b%n");
}

} // namespace
