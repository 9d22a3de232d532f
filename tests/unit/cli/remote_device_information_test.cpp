// SPDX-License-Identifier: Apache-2.0
#include "REMOTE_MANAGEMENT_CLI/device_information.h"

#include "onu_devices_fixture.h"

namespace {

using RemoteDeviceInformation = OnuDevices;

TEST_F(RemoteDeviceInformation, Status)
{
    const Show show = remote_show("device-mgmt device-status");
    expect_show(show,
                "reboot_cause: none \r\n"
                "diagnostic_test: not-run \r\n"
                "mld_application: stopped \r\n"
                "file_transfer: none \r\n"
                "events: 0xfffffff \r\n"
                "led_pon_rx: hw \r\n"
                "led_pon_link: hw \r\n"
                "led_pon_tx: hw \r\n"
                "led_pon_rx_err: hw \r\n"
                "led_uni1: hw \r\n"
                "led_uni2: hw \r\n"
                "led_uni3: hw \r\n"
                "led_uni4: hw \r\n",
                "REMOTE_NEPONU_get_device_status(0, 5) = 0 -> {reboot_cause=0,diagnostic_test=0,mld_application=0,"
                "file_transfer=0,events=268435455,led=[0,0,0,0,0,0,0,0]}");
    type("remote device-mgmt led-configuration led pon-rx activity fw");
    type("remote device-mgmt led-configuration led uni4 activity slow");
    type("remote device-mgmt event-configuration type address-tbl-full event disable");
    type("remote device-mgmt diagnostic-test test uni-loopback");
    type("remote mp-application mld-init");
    journal();
    expect_show(show,
                "reboot_cause: none \r\n"
                "diagnostic_test: failed \r\n"
                "mld_application: running \r\n"
                "file_transfer: none \r\n"
                "events: 0xfffefff \r\n"
                "led_pon_rx: fw \r\n"
                "led_pon_link: hw \r\n"
                "led_pon_tx: hw \r\n"
                "led_pon_rx_err: hw \r\n"
                "led_uni1: hw \r\n"
                "led_uni2: hw \r\n"
                "led_uni3: hw \r\n"
                "led_uni4: slow \r\n",
                "REMOTE_NEPONU_get_device_status(0, 5) = 0 -> {reboot_cause=0,diagnostic_test=2,mld_application=1,"
                "file_transfer=0,events=268431359,led=[1,0,0,0,0,0,0,4]}");
}

TEST_F(RemoteDeviceInformation, Version)
{
    expect_show(remote_show("device-mgmt device-version"),
                "hw_major_ver: 0x1a2b \r\n"
                "hw_minor_ver: 65535 \r\n"
                "fw_major_ver: 4 \r\n"
                "fw_minor_ver: 1 \r\n"
                "fw_build_num: 12 \r\n"
                "fw_maintenance_ver: 3 \r\n"
                "oam_version: draft \r\n",
                "REMOTE_NEPONU_get_device_version(0, 5) = 0 -> {hw_major=6699,hw_minor=65535,fw_major=4,fw_minor=1,"
                "fw_build=12,fw_maintenance=3,oam_version=0}");
}

TEST_F(RemoteDeviceInformation, PonClockIsHalfARoundTripBehind)
{
    sdk_sim::advance_clock(10000);
    expect_show(remote_show("device-mgmt pon-clock"), "pon_clock: 0x2540bc4c \r\n",
                "REMOTE_NEPONU_get_pon_clock(0, 5) = 0 -> 624999500");
}

TEST_F(RemoteDeviceInformation, MacAddress)
{
    expect_show(remote_show("device-mgmt mac-address"),
                "pon_mac_address: 02-00-00-00-00-05 \r\nuni_mac_address: 00-00-00-00-00-05 \r\n",
                "REMOTE_NEPONU_get_mac_address(0, 5) = 0 -> {pon=02-00-00-00-00-05,uni=00-00-00-00-00-05}");
}

TEST_F(RemoteDeviceInformation, UpTime)
{
    const Show show = remote_show("device-mgmt up-time");
    expect_show(show, "time: 0 \r\n", "REMOTE_NEPONU_get_up_time(0, 5) = 0 -> 0");
    sdk_sim::advance_clock(59999);
    expect_show(show, "time: 59 \r\n", "REMOTE_NEPONU_get_up_time(0, 5) = 0 -> 59");
    sdk_sim::advance_clock(1234567890);
    expect_show(show, "time: 1.23463e+06 \r\n", "REMOTE_NEPONU_get_up_time(0, 5) = 0 -> 1234627");
}

TEST_F(RemoteDeviceInformation, Os)
{
    expect_show(remote_show("device-mgmt os"),
                "os_type: threadx \r\n"
                "major: 5 \r\n"
                "minor: 8 \r\n"
                "build: 1024 \r\n",
                "REMOTE_NEPONU_get_os(0, 5) = 0 -> {os_type=3,major=5,minor=8,build=1024}");
    enter_onu(254);
    EXPECT_EQ(type("show remote device-mgmt os"), "os_type: linux \r\nmajor: 4 \r\nminor: 19 \r\nbuild: 0 \r\n");
}

TEST_F(RemoteDeviceInformation, CodesWithoutAWord)
{
    enter_onu(253);
    EXPECT_NE(type("show remote device-mgmt device-version").find("oam_version: Invalid value \r\n"),
              std::string::npos);
    EXPECT_EQ(type("show remote device-mgmt os").find("os_type: Invalid value \r\n"), 0u);
    EXPECT_EQ(type("show remote oam-api oam-version"), "version: Invalid value \r\n");
}

TEST_F(RemoteDeviceInformation, FailedCalls)
{
    const std::pair<const char*, const char*> commands[] = {
        {"show remote device-mgmt device-status", "REMOTE_NEPONU_get_device_status"},
        {"show remote device-mgmt device-version", "REMOTE_NEPONU_get_device_version"},
        {"show remote device-mgmt pon-clock", "REMOTE_NEPONU_get_pon_clock"},
        {"show remote device-mgmt mac-address", "REMOTE_NEPONU_get_mac_address"},
        {"show remote device-mgmt up-time", "REMOTE_NEPONU_get_up_time"},
        {"show remote device-mgmt os", "REMOTE_NEPONU_get_os"},
    };
    for (const auto& [line, operation] : commands)
        expect_remote_failures(line, operation);
}

} // namespace
