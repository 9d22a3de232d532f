// SPDX-License-Identifier: Apache-2.0
// OLTs and ONUs that answer with all bits set: what the commands print then shows the width and the notation of every
// field, and what becomes of a value that has no word. Each answer is printed on a terminal and on a plain stream; then
// the same operation fails.
//
//   widest_answers path/to/libepon_cli.so
#include <dlfcn.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <epon/cli.h>

enum { OLT = 15, ONU = 254 };

vty_vector* vtyvec;
int RBX_vty_kill_all_flag;

static int failures;
static int16_t answer_code;
static char printed[4096];
static size_t printed_length;

static void complain(const char* handler, const char* what)
{
    fprintf(stderr, "widest_answers: %s: %s\n", handler, what);
    failures++;
}

int RBX_vty_out_internal(vty* session, const char* format, va_list arguments)
{
    (void)session;
    const size_t room = sizeof printed - printed_length;
    const int length = vsnprintf(printed + printed_length, room, format, arguments);
    if (length >= 0 && (size_t)length < room) printed_length += (size_t)length;
    return length;
}

// --- The SDK ---------------------------------------------------------------------------------------------------

static int16_t answer(void* record, size_t size)
{
    if (answer_code == 0) memset(record, 0xff, size);
    return answer_code;
}

static void expect_onu(const char* operation, int16_t olt_id, int16_t onu_id)
{
    if (olt_id != OLT || onu_id != ONU) complain(operation, "is called for another ONU");
}

#define ONE_RECORD(operation, Record)                                                                                  \
    int16_t operation(int16_t olt_id, int16_t onu_id, Record* record)                                                  \
    {                                                                                                                  \
        expect_onu(#operation, olt_id, onu_id);                                                                        \
        return answer(record, sizeof *record);                                                                         \
    }

#define TWO_VALUES(operation, Value)                                                                                   \
    int16_t operation(int16_t olt_id, int16_t onu_id, Value* first, Value* second)                                     \
    {                                                                                                                  \
        expect_onu(#operation, olt_id, onu_id);                                                                        \
        answer(first, sizeof *first);                                                                                  \
        return answer(second, sizeof *second);                                                                         \
    }

ONE_RECORD(REMOTE_NEPONU_get_device_version, REMOTE_device_version)
ONE_RECORD(REMOTE_NEPONU_uni_get_port_configuration, REMOTE_uni_port_configuration)
ONE_RECORD(REMOTE_NEPONU_uni_get_port_status, REMOTE_uni_port_status)
ONE_RECORD(REMOTE_NEPONU_get_os, REMOTE_os)
ONE_RECORD(REMOTE_NEPONU_get_up_time, uint64_t)
ONE_RECORD(REMOTE_NEPONU_get_pon_clock, uint32_t)
ONE_RECORD(REMOTE_NEPONU_get_oam_version, int32_t)
ONE_RECORD(REMOTE_NEPONU_get_ADC_sample, uint32_t)
ONE_RECORD(REMOTE_NEPONU_mp_mld_get_version, REMOTE_mld_version)
ONE_RECORD(REMOTE_NEPONU_get_oam_dying_gasp_times, uint32_t)
ONE_RECORD(REMOTE_NEPONU_get_reboot_counter, uint16_t)
TWO_VALUES(REMOTE_NEPONU_encryption_get_configuration, uint8_t)
TWO_VALUES(REMOTE_NEPONU_uni_get_port, uint8_t)
TWO_VALUES(REMOTE_NEPONU_get_extend_mtu, uint8_t)
ONE_RECORD(CTC_STACK_get_chipset_id, CTC_chipset_id)
ONE_RECORD(CTC_STACK_get_onu_serial_number, CTC_serial_number)
ONE_RECORD(NEP_get_llid_fec_mode, int32_t)
ONE_RECORD(NEP_get_onu_mode, int32_t)
ONE_RECORD(NEP_get_llid_parameters, LLID_parameters)

int16_t REMOTE_NEPONU_get_forward_error_correction_configuration(int16_t olt_id, int16_t onu_id, uint8_t* rx_auto,
                                                                 uint8_t* rx_enable, uint8_t* tx_enable)
{
    expect_onu(__func__, olt_id, onu_id);
    answer(rx_auto, sizeof *rx_auto);
    answer(rx_enable, sizeof *rx_enable);
    return answer(tx_enable, sizeof *tx_enable);
}

int16_t REMOTE_NEPONU_get_alarm_configuration(int16_t olt_id, int16_t onu_id, int32_t alarm, uint8_t* enable_hook,
                                              uint64_t* window, uint64_t* threshold)
{
    expect_onu(__func__, olt_id, onu_id);
    if (alarm != REMOTE_ALARM_SECOND_SUMMARY) complain(__func__, "is called for another alarm");
    answer(enable_hook, sizeof *enable_hook);
    answer(window, sizeof *window);
    return answer(threshold, sizeof *threshold);
}

int16_t REMOTE_NEPONU_ne_get_lag_hash_key(int16_t olt_id, int16_t onu_id, uint32_t* vlan_id, uint32_t* vlan_priority,
                                          uint32_t* mac_sa, uint32_t* mac_da)
{
    expect_onu(__func__, olt_id, onu_id);
    answer(vlan_id, sizeof *vlan_id);
    answer(vlan_priority, sizeof *vlan_priority);
    answer(mac_sa, sizeof *mac_sa);
    return answer(mac_da, sizeof *mac_da);
}

int16_t CTC_STACK_get_version(uint8_t* version)
{
    return answer(version, sizeof *version);
}

int16_t CTC_STACK_get_auth_mode(int16_t olt_id, int32_t* mode)
{
    expect_onu(__func__, olt_id, ONU);
    return answer(mode, sizeof *mode);
}

int16_t CTC_STACK_get_communication_configuration(int16_t* timeout_in_100_ms, int16_t* resend_limit)
{
    answer(timeout_in_100_ms, sizeof *timeout_in_100_ms);
    return answer(resend_limit, sizeof *resend_limit);
}

int16_t NEP_get_olt_parameters(int16_t olt_id, OLT_parameters* parameters)
{
    expect_onu(__func__, olt_id, ONU);
    return answer(parameters, sizeof *parameters);
}

int16_t NEP_get_olt_versions(int16_t olt_id, OLT_device_versions* device, OLT_version* firmware, OLT_version* host)
{
    expect_onu(__func__, olt_id, ONU);
    answer(device, sizeof *device);
    answer(firmware, sizeof *firmware);
    return answer(host, sizeof *host);
}

const char* Get_pon_mac_name(int32_t type)
{
    return type == -1 ? "no such type" : "a type that was not asked for";
}

int16_t NEP_get_duplicate_mac_handle_mode(int16_t olt_id, int32_t* mode)
{
    expect_onu(__func__, olt_id, ONU);
    return answer(mode, sizeof *mode);
}

int16_t NEP_xaui_redundancy_get_params(int16_t olt_id, int32_t parameter, int32_t* value)
{
    static int32_t next;
    if (answer_code != 0 || parameter == 0) next = 0;
    if (parameter != next++) complain(__func__, "is not called for one parameter after the other");
    expect_onu(__func__, olt_id, ONU);
    return answer(value, sizeof *value);
}

// --- The commands ----------------------------------------------------------------------------------------------

enum family { REMOTE, CTC, GENERAL, FAMILY_COUNT };

// What a handler prints, line by line, each with the blank before its end.
struct command {
    const char* handler;
    enum family family;
    const char* lines;
    const char* own_word; // null for a command without words of its own
};

// What a code means in each family: a code of one family is none of the others.
#define NOT_FOUND "Error code was not found!!!"
static const struct {
    int16_t code;
    const char* words[FAMILY_COUNT];
} failing_codes[] = {
    {-1, {"exit error", "exit error", "exit error"}}, {-17003, {NOT_FOUND, "OLT not exist", NOT_FOUND}},
    {-13014, {"query failed", NOT_FOUND, NOT_FOUND}}, {-1003, {NOT_FOUND, NOT_FOUND, "OLT not exist"}},
    {1, {NOT_FOUND, NOT_FOUND, NOT_FOUND}},
};

#define NO_WORD ": Invalid value \n"

static const struct command commands[] = {
    {"show_remote_device_version", REMOTE,
     "hw_major_ver: 0xffff \nhw_minor_ver: 65535 \nfw_major_ver: 65535 \nfw_minor_ver: 65535 \nfw_build_num: 65535 \n"
     "fw_maintenance_ver: 65535 \noam_version" NO_WORD,
     NULL},
    {"show_remote_uni_port", REMOTE, "enable_cpu" NO_WORD "enable_datapath" NO_WORD, NULL},
    {"show_remote_uni_port_configuration", REMOTE,
     "mac_type" NO_WORD "mii_rate" NO_WORD "duplex" NO_WORD "gmii_master_mode" NO_WORD "auto_negotiate" NO_WORD
     "mode" NO_WORD "advertise" NO_WORD "adv_10_half" NO_WORD "adv_10_full" NO_WORD "adv_100_half" NO_WORD
     "adv_100_full" NO_WORD "adv_100_t4" NO_WORD "adv_pause" NO_WORD "adv_asym_pause" NO_WORD "adv_1000_half" NO_WORD
     "adv_1000_full" NO_WORD "adv_port_type" NO_WORD "phy_address: 0xffff \n",
     NULL},
    {"show_remote_uni_port_status", REMOTE,
     "link" NO_WORD "mac_type" NO_WORD "mii_rate" NO_WORD "duplex" NO_WORD "auto_negotiate" NO_WORD "mode" NO_WORD
     "pause_tx" NO_WORD "pause_rx" NO_WORD "port_type" NO_WORD,
     NULL},
    {"show_remote_alarm_configuration", REMOTE,
     "enable_hook_function" NO_WORD "window: 1.84467e+19 \nthreshold: 1.84467e+19 \n", "second-summary"},
    {"show_remote_extend_mtu_size", REMOTE, "downstream_extend_enable" NO_WORD "upstream_extend_enable" NO_WORD, NULL},
    {"show_remote_lag_hash_key", REMOTE,
     "VLAN ID key: 4294967295 \nVLAN ID prio key: 4294967295 \nMAC SA key: 4294967295 \nMAC DA key: 4294967295 \n",
     NULL},
    {"show_remote_os", REMOTE, "os_type" NO_WORD "major: 4294967295 \nminor: 4294967295 \nbuild: 4294967295 \n", NULL},
    {"show_remote_up_time", REMOTE, "time: 1.84467e+19 \n", NULL},
    {"show_remote_pon_clock", REMOTE, "pon_clock: 0xffffffff \n", NULL},
    {"show_remote_oam_version", REMOTE, "version" NO_WORD, NULL},
    {"show_remote_ADC_sample", REMOTE, "sample: 4294967295 \n", NULL},
    {"show_remote_mld_version", REMOTE, "major_version: 65535 \nminor_version: 65535 \nbuild_version: 65535 \n", NULL},
    {"show_remote_oam_dying_gasp_times", REMOTE, "times: 4294967295 \n", NULL},
    {"show_remote_reboot_counter", REMOTE, "reboot_counter: 65535 \n", NULL},
    {"show_remote_encryption_configuration", REMOTE,
     "encryption_mirror_enable" NO_WORD "encryption_bypass_enable" NO_WORD, NULL},
    {"show_remote_fec_configuration", REMOTE, "fec_rx_auto" NO_WORD "fec_rx_enable" NO_WORD "fec_tx_enable" NO_WORD,
     NULL},
    {"show_chipset_id", CTC,
     "OLT_id: 15 \nONU_id: 254 \nvendor_id: ?? \nchip_model: 0xffff \nrevision: 255 \n"
     "date: (YY) 255 (MM) 255 (DD) 255 \n",
     NULL},
    {"show_onu_serial_number", CTC,
     "OLT_id: 15 \nONU_id: 254 \nvendor_id: ???? \nonu_model: 0xffffffff \nonu_model_string : ????\n"
     "onu_id: 0xff-0xff-0xff-0xff-0xff-0xff \nhardware_version: ???????? \nsoftware_version: ???????????????? \n",
     NULL},
    {"show_ctc_version", CTC, "version: 255 \n", NULL},
    {"show_auth_mode", CTC, "mode" NO_WORD, NULL},
    {"show_communication_config", CTC, "timeout_in_100_ms: -1 \nresend_limit: -1 \n", NULL},
    {"show_olt_parameters", GENERAL,
     "OLT_id: 15 \nGrant filtering" NO_WORD "Max rtt: -1 \nMin rtt: -1 \n"
     "OLT Mac Address: 0xff-0xff-0xff-0xff-0xff-0xff- \nOUI 1G: 0xffffffff \nOUI 10G: 0xffffffff \n"
     "vendor specific 1G: 0xffffffff \nvendor specific 10G: 0xffffffff \nLLID assignment" NO_WORD "sled strobe" NO_WORD
     "sled mute" NO_WORD "I2C speed" NO_WORD "UART baud rate" NO_WORD,
     NULL},
    {"show_olt_grant_filtering", GENERAL, "OLT_id: 15 \nGrant filtering" NO_WORD, NULL},
    {"show_olt_version", GENERAL,
     "OLT id: 15 \nDevice: ???????????????????????????????? \nHardware version: FF.FF\nSystem port MAC: no such type \n"
     "LLIDs (ports) supported: 65535 \nFirmware version: 65535.65535.65535.65535\n"
     "Host version: 65535.65535.65535.65535\n",
     NULL},
    {"show_duplicate_mac_handle_mode", GENERAL, "OLT_id: 15 \nduplicate mac handle mode" NO_WORD, NULL},
    {"show_llid_fec", GENERAL, "OLT_id: 15 \nfec" NO_WORD, NULL},
    {"show_llid_mode", GENERAL, "OLT_id: 15 \nmode" NO_WORD, NULL},
    {"show_llid_authorize", GENERAL, "OLT_id: 15 \nauthorization" NO_WORD, NULL},
    {"show_llid_encryption", GENERAL, "OLT_id: 15 \nencryption" NO_WORD, NULL},
    {"xaui_redundancy_params_show", GENERAL,
     "Inactive channel Mode" NO_WORD "Triggering Mode" NO_WORD "GPIO Mode" NO_WORD, NULL},
};

// Lines with the line end of a kind of session.
static const char* with_ends(const char* lines, const char* end)
{
    static char text[sizeof printed];
    size_t length = 0;
    for (; *lines != '\0'; ++lines) {
        if (*lines == '\n') {
            length += (size_t)snprintf(text + length, sizeof text - length, "%s", end);
        } else {
            text[length++] = *lines;
        }
    }
    text[length] = '\0';
    return text;
}

static void expect(const struct command* command, vty* session, cmd_handler* handler, const char* lines, int result)
{
    static char word[32];
    char* words[] = {word, NULL};
    const int count = command->own_word != NULL;
    if (count != 0) snprintf(word, sizeof word, "%s", command->own_word);
    printed_length = 0;
    printed[0] = '\0';
    if (handler(NULL, session, count, words) != result) complain(command->handler, "returns something else");
    if (strcmp(printed, with_ends(lines, VTY_NEWLINE(session))) != 0) {
        complain(command->handler, "prints something else:");
        fputs(printed, stderr);
    }
}

static void expect_failure(const struct command* command, vty* session, cmd_handler* handler, int16_t code,
                           const char* words)
{
    char lines[128];
    snprintf(lines, sizeof lines, "Command return error.\n%s (error code : %d)\n", words, code);
    answer_code = code;
    expect(command, session, handler, lines, command->family == REMOTE ? 0 : code);
    answer_code = 0;
}

static void run(const struct command* command, cmd_handler* handler)
{
    static vty session = {.buf = "", .olt_id = OLT, .llid = ONU, .onu_id = ONU, .onu_by_index = 1};
    for (session.type = VTY_TYPE_TERMINAL; session.type <= VTY_TYPE_TERMINAL + 1; ++session.type) {
        expect(command, &session, handler, command->lines, 0);
        for (size_t i = 0; i < sizeof failing_codes / sizeof *failing_codes; i++)
            expect_failure(command, &session, handler, failing_codes[i].code, failing_codes[i].words[command->family]);
    }
}

int main(int argc, char** argv)
{
    if (argc != 2) {
        fprintf(stderr, "usage: widest_answers path/to/libepon_cli.so\n");
        return 2;
    }
    void* library = dlopen(argv[1], RTLD_LAZY | RTLD_GLOBAL);
    if (library == NULL) {
        fprintf(stderr, "widest_answers: %s\n", dlerror());
        return 1;
    }
    for (size_t i = 0; i < sizeof commands / sizeof *commands; i++) {
        cmd_handler* handler;
        *(void**)&handler = dlsym(library, commands[i].handler);
        if (handler == NULL) {
            complain(commands[i].handler, "is not exported");
        } else {
            run(&commands[i], handler);
        }
    }
    return failures == 0 ? 0 : 1;
}
