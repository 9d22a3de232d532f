// SPDX-License-Identifier: Apache-2.0
// What an ONU is: its serial number, its firmware and its chipset.
#include "CTC_STACK_CLI/identity.h"

#include <cstddef>

#include "CLI_GENERAL/onu_show.h"
#include "CTC_STACK_CLI/onu_report.h"

using namespace epon;

namespace {

template <size_t SIZE>
constexpr Field text_field(const char* label, size_t offset)
{
    return {label, FieldFormat::Text, static_cast<uint16_t>(offset), nullptr, nullptr, SIZE};
}

// The model stands a second time, as characters, before the fields of the ONU itself.
constexpr Field model_fields[] = {
    text_field<CTC_VENDOR_ID_SIZE>("vendor_id", offsetof(CTC_serial_number, vendor_id)),
    {"onu_model", FieldFormat::Hex32, offsetof(CTC_serial_number, onu_model)},
};
constexpr Field onu_fields[] = {
    {"onu_id", FieldFormat::HexId, offsetof(CTC_serial_number, onu_id)},
    text_field<CTC_HARDWARE_VERSION_SIZE>("hardware_version", offsetof(CTC_serial_number, hardware_version)),
    text_field<CTC_SOFTWARE_VERSION_SIZE>("software_version", offsetof(CTC_serial_number, software_version)),
};

constexpr Field firmware_fields[] = {
    text_field<CTC_FIRMWARE_VERSION_SIZE>("firmware_version", offsetof(CTC_firmware_version, version)),
};

constexpr Field chipset_fields[] = {
    text_field<CTC_CHIPSET_VENDOR_SIZE>("vendor_id", offsetof(CTC_chipset_id, vendor_id)),
    {"chip_model", FieldFormat::Hex16, offsetof(CTC_chipset_id, chip_model)},
    {"revision", FieldFormat::Uint8, offsetof(CTC_chipset_id, revision)},
};

char printable(uint32_t octet)
{
    return octet >= ' ' && octet <= '~' ? static_cast<char>(octet) : '?';
}

void print_model_string(vty* session, uint32_t model)
{
    RBX_vty_out(session, "onu_model_string : %c%c%c%c%s", printable(model >> 24), printable(model >> 16 & 0xFF),
                printable(model >> 8 & 0xFF), printable(model & 0xFF), VTY_NEWLINE(session));
}

} // namespace

int show_onu_serial_number(cmd_element*, vty* session, int argc, char** argv)
{
    OnuTarget onu;
    int result;
    if (!read_onu_target(session, argc, argv, &onu, &result)) return result;
    CTC_serial_number serial{};
    const int16_t code = CTC_STACK_get_onu_serial_number(onu.olt_id, onu.onu_id, &serial);
    if (code != 0) return report_ctc(session, code);
    print_onu(session, onu);
    print_fields(session, &serial, model_fields);
    print_model_string(session, serial.onu_model);
    print_fields(session, &serial, onu_fields);
    return 0;
}

int show_firmware_version(cmd_element*, vty* session, int argc, char** argv)
{
    return show_ctc(session, argc, argv, CTC_STACK_get_firmware_version_extended, firmware_fields);
}

int show_chipset_id(cmd_element*, vty* session, int argc, char** argv)
{
    OnuTarget onu;
    int result;
    if (!read_onu_target(session, argc, argv, &onu, &result)) return result;
    CTC_chipset_id chipset{};
    const int16_t code = CTC_STACK_get_chipset_id(onu.olt_id, onu.onu_id, &chipset);
    if (code != 0) return report_ctc(session, code);
    print_onu(session, onu);
    print_fields(session, &chipset, chipset_fields);
    RBX_vty_out(session, "date: (YY) %d (MM) %d (DD) %d %s", chipset.year, chipset.month, chipset.day,
                VTY_NEWLINE(session));
    return 0;
}

static constinit OnuShow show_onu_serial_number_cmd =
    ctc_show<"serial-number", "Serial number: vendor, model, MAC address, versions of hardware and software\n">(
        show_onu_serial_number);

static constinit OnuShow show_firmware_version_cmd =
    ctc_show<"firmware-version", "Version of the firmware that its PON chip runs\n">(show_firmware_version);

static constinit OnuShow show_chipset_id_cmd =
    ctc_show<"chipset-id", "Its PON chip: vendor, model, revision and date of the design\n">(show_chipset_id);

namespace epon {

void install_ctc_identity()
{
    install({&show_onu_serial_number_cmd, &show_firmware_version_cmd, &show_chipset_id_cmd});
}

} // namespace epon
