// SPDX-License-Identifier: Apache-2.0
// What an ONU is and does at present: status, versions, clock, addresses, time since its start, operating system.
#include "REMOTE_MANAGEMENT_CLI/device_information.h"

#include <cstddef>

#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/onu_show.h"
#include "REMOTE_MANAGEMENT_CLI/device_words.h"
#include "REMOTE_MANAGEMENT_CLI/oam_versions.h"
#include "REMOTE_MANAGEMENT_CLI/onu_report.h"

using namespace epon;

namespace {

constexpr Word diagnostic_words[] = {
    {"not-run", REMOTE_TEST_NOT_RUN}, {"passed", REMOTE_TEST_PASSED}, {"failed", REMOTE_TEST_FAILED}};
constexpr WordTable diagnostic_results = {"diagnostic_test", diagnostic_words};

constexpr Word mld_words[] = {{"stopped", REMOTE_MLD_STOPPED}, {"running", REMOTE_MLD_RUNNING}};
constexpr WordTable mld_states = {"mld_application", mld_words};

constexpr Word file_words[] = {
    {"none", REMOTE_FILE_NONE}, {"running", REMOTE_FILE_RUNNING}, {"complete", REMOTE_FILE_COMPLETE}};
constexpr WordTable file_states = {"file_transfer", file_words};

constexpr Word os_words[] = {
    {"none", REMOTE_OS_NONE}, {"ecos", REMOTE_OS_ECOS}, {"linux", REMOTE_OS_LINUX}, {"threadx", REMOTE_OS_THREADX}};
constexpr WordTable os_types = {"os_type", os_words};

constexpr Field led_field(const char* label, RemoteLed led)
{
    return {label, FieldFormat::Int32Word,
            static_cast<uint16_t>(offsetof(REMOTE_device_status, led) + led * sizeof(int32_t)), &led_activities};
}

constexpr Field status_fields[] = {
    {"reboot_cause", FieldFormat::Int32Word, offsetof(REMOTE_device_status, reboot_cause), &reset_reasons},
    {"diagnostic_test", FieldFormat::Int32Word, offsetof(REMOTE_device_status, diagnostic_test), &diagnostic_results},
    {"mld_application", FieldFormat::Int32Word, offsetof(REMOTE_device_status, mld_application), &mld_states},
    {"file_transfer", FieldFormat::Int32Word, offsetof(REMOTE_device_status, file_transfer), &file_states},
    {"events", FieldFormat::Hex32, offsetof(REMOTE_device_status, events)},
    led_field("led_pon_rx", REMOTE_LED_PON_RX),
    led_field("led_pon_link", REMOTE_LED_PON_LINK),
    led_field("led_pon_tx", REMOTE_LED_PON_TX),
    led_field("led_pon_rx_err", REMOTE_LED_PON_RX_ERR),
    led_field("led_uni1", REMOTE_LED_UNI1),
    led_field("led_uni2", REMOTE_LED_UNI2),
    led_field("led_uni3", REMOTE_LED_UNI3),
    led_field("led_uni4", REMOTE_LED_UNI4),
};

constexpr Field version_fields[] = {
    {"hw_major_ver", FieldFormat::Hex16, offsetof(REMOTE_device_version, hw_major)},
    {"hw_minor_ver", FieldFormat::Uint16, offsetof(REMOTE_device_version, hw_minor)},
    {"fw_major_ver", FieldFormat::Uint16, offsetof(REMOTE_device_version, fw_major)},
    {"fw_minor_ver", FieldFormat::Uint16, offsetof(REMOTE_device_version, fw_minor)},
    {"fw_build_num", FieldFormat::Uint16, offsetof(REMOTE_device_version, fw_build)},
    {"fw_maintenance_ver", FieldFormat::Uint16, offsetof(REMOTE_device_version, fw_maintenance)},
    {"oam_version", FieldFormat::Int32Word, offsetof(REMOTE_device_version, oam_version), &oam_versions},
};

constexpr Field clock_fields[] = {{"pon_clock", FieldFormat::Hex32, 0}};

constexpr Field mac_fields[] = {{"pon_mac_address", FieldFormat::Mac, offsetof(REMOTE_mac_address, pon)},
                                {"uni_mac_address", FieldFormat::Mac, offsetof(REMOTE_mac_address, uni)}};

constexpr Field up_time_fields[] = {{"time", FieldFormat::Counter, 0}};

constexpr Field os_fields[] = {{"os_type", FieldFormat::Int32Word, offsetof(REMOTE_os, os_type), &os_types},
                               {"major", FieldFormat::Uint32, offsetof(REMOTE_os, major)},
                               {"minor", FieldFormat::Uint32, offsetof(REMOTE_os, minor)},
                               {"build", FieldFormat::Uint32, offsetof(REMOTE_os, build)}};

} // namespace

int show_remote_device_status(cmd_element*, vty* session, int argc, char** argv)
{
    return show_remote(session, argc, argv, REMOTE_NEPONU_get_device_status, status_fields);
}

int show_remote_device_version(cmd_element*, vty* session, int argc, char** argv)
{
    return show_remote(session, argc, argv, REMOTE_NEPONU_get_device_version, version_fields);
}

int show_remote_pon_clock(cmd_element*, vty* session, int argc, char** argv)
{
    return show_remote(session, argc, argv, REMOTE_NEPONU_get_pon_clock, clock_fields);
}

int show_remote_mac_address(cmd_element*, vty* session, int argc, char** argv)
{
    return show_remote(session, argc, argv, REMOTE_NEPONU_get_mac_address, mac_fields);
}

int show_remote_up_time(cmd_element*, vty* session, int argc, char** argv)
{
    return show_remote(session, argc, argv, REMOTE_NEPONU_get_up_time, up_time_fields);
}

int show_remote_os(cmd_element*, vty* session, int argc, char** argv)
{
    return show_remote(session, argc, argv, REMOTE_NEPONU_get_os, os_fields);
}

static constinit OnuShow show_remote_device_status_cmd =
    remote_show<"device-mgmt device-status",
                "The ONU as a device\n"
                "Why it started last, its tests and applications, the events that it sends, and its LEDs\n">(
        show_remote_device_status);
static constinit OnuShow show_remote_device_version_cmd =
    remote_show<"device-mgmt device-version", "The ONU as a device\n"
                                              "Versions of its hardware, its firmware and its OAM\n">(
        show_remote_device_version);
static constinit OnuShow show_remote_pon_clock_cmd =
    remote_show<"device-mgmt pon-clock", "The ONU as a device\n"
                                         "Its MPCP clock, time quanta of 16 ns\n">(show_remote_pon_clock);
static constinit OnuShow show_remote_mac_address_cmd =
    remote_show<"device-mgmt mac-address", "The ONU as a device\n"
                                           "MAC addresses of its PON port and of its users' port\n">(
        show_remote_mac_address);
static constinit OnuShow show_remote_up_time_cmd =
    remote_show<"device-mgmt up-time", "The ONU as a device\n"
                                       "Time since it started, seconds\n">(show_remote_up_time);
static constinit OnuShow show_remote_os_cmd =
    remote_show<"device-mgmt os", "The ONU as a device\n"
                                  "Its operating system, with the version of that\n">(show_remote_os);

namespace epon {

void install_device_information()
{
    install({&show_remote_device_status_cmd, &show_remote_device_version_cmd, &show_remote_pon_clock_cmd,
             &show_remote_mac_address_cmd, &show_remote_up_time_cmd, &show_remote_os_cmd});
}

} // namespace epon
