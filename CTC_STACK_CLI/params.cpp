// SPDX-License-Identifier: Apache-2.0
// What the CTC stack does by itself, and the versions of extended OAM that it speaks.
#include "CTC_STACK_CLI/params.h"

#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/command.h"
#include "CTC_STACK_CLI/onu_report.h"
#include "CTC_STACK_CLI/token_list.h"

using namespace epon;

namespace {

constexpr int16_t PARAMETER_ERROR = -4;

constexpr NumberRule oui_rule = unsigned_32("oui_as_number"); // the low 24 bits count
constexpr NumberRule version_rule = unsigned_range("version", 0, 255);

struct Parameters {
    int32_t automatic_mode;
    uint8_t number_of_records;
    CTC_oui_version records[255];
    int32_t automatic_onu_configuration_mode;
};

int refuse_missing(vty* session, const char* what)
{
    RBX_vty_out(session, " error in reading %s in records string%s", what, VTY_NEWLINE(session));
    return report_ctc(session, PARAMETER_ERROR);
}

// On false the refusal is printed, and *result is what the handler returns.
bool read_record(vty* session, TokenList& tokens, CTC_oui_version* record, int* result)
{
    uint32_t oui;
    const char* token = tokens.next();
    if (token == nullptr) {
        *result = refuse_missing(session, "oui");
        return false;
    }
    *result = -1;
    if (!read_number(session, token, oui_rule, &oui)) return false;
    token = tokens.next();
    if (token == nullptr) {
        *result = refuse_missing(session, "version");
        return false;
    }
    if (!read_number(session, token, version_rule, &record->version)) return false;
    record->oui[0] = static_cast<uint8_t>(oui >> 16);
    record->oui[1] = static_cast<uint8_t>(oui >> 8);
    record->oui[2] = static_cast<uint8_t>(oui);
    return true;
}

void print_record(vty* session, unsigned int number, const CTC_oui_version& record)
{
    RBX_vty_out(session, "record %u: oui 0x%02x%02x%02x version %u %s", number, record.oui[0], record.oui[1],
                record.oui[2], record.version, VTY_NEWLINE(session));
}

} // namespace

int set_params(cmd_element*, vty* session, int, char** argv)
{
    Parameters parameters;
    TokenList tokens;
    int result;
    if (!read_word(session, argv[0], "automatic_mode", enable_disable, &parameters.automatic_mode) ||
        !read_number(session, argv[1], unsigned_range("number_of_oui_records", 0, 255),
                     &parameters.number_of_records) ||
        !tokens.read(session, argv[2], "records_str") ||
        !read_word(session, argv[3], "automatic_onu_configuration", enable_disable,
                   &parameters.automatic_onu_configuration_mode))
        return -1;
    for (unsigned int i = 0; i < parameters.number_of_records; ++i) {
        if (!read_record(session, tokens, &parameters.records[i], &result)) return result;
    }
    return report_ctc(session,
                      CTC_STACK_set_parameters(parameters.automatic_mode, parameters.number_of_records,
                                               parameters.records, parameters.automatic_onu_configuration_mode));
}

int show_ctc_parameters(cmd_element*, vty* session, int, char**)
{
    Parameters parameters{};
    const int16_t code = CTC_STACK_get_parameters(&parameters.automatic_mode, &parameters.number_of_records,
                                                  parameters.records, &parameters.automatic_onu_configuration_mode);
    if (code != 0) return report_ctc(session, code);
    const char* newline = VTY_NEWLINE(session);
    RBX_vty_out(session, "%s: %s %s", "automatic_mode", word_of(enable_disable, parameters.automatic_mode), newline);
    RBX_vty_out(session, "%s: %u %s", "number_of_oui_records", parameters.number_of_records, newline);
    for (unsigned int i = 0; i < parameters.number_of_records; ++i)
        print_record(session, i, parameters.records[i]);
    RBX_vty_out(session, "%s: %s %s", "automatic_onu_configuration",
                word_of(enable_disable, parameters.automatic_onu_configuration_mode), newline);
    return 0;
}

static constinit cmd_element set_params_cmd =
    command("ctc set-params automatic-mode (disable|enable) number_of_records <0-62> oui-records RECORDS_LIST "
            "automatic-onu-configuration-mode (disable|enable)",
            set_params,
            "Management of ONUs by the CTC extension of OAM\n"
            "What the stack does by itself, and what it speaks\n"
            "Whether ONUs are discovered as soon as their OAM is up\n"
            "disable: ONUs stay undiscovered; enable: ONUs are discovered\n"
            "How many versions of extended OAM the stack speaks\n"
            "Number of records, 0-62; 0: the one of \"ctc oui\" and \"ctc version\"\n"
            "Which these are\n"
            "OUI;VERSION;OUI;VERSION... without blanks: OUI 0-0xffffff, version 0-255, decimal or with 0x hexadecimal; "
            "any word for no records\n"
            "Whether an ONU that returns is given again what was set on it\n"
            "disable: nothing is given again; enable: its key timing and its report thresholds are set again\n");

static constinit cmd_element show_ctc_parameters_cmd = command("show ctc params", show_ctc_parameters,
                                                               "Show settings and state\n"
                                                               "Management of ONUs by the CTC extension of OAM\n"
                                                               "What the stack does by itself, and what it speaks\n");

namespace epon {

void install_ctc_params()
{
    install({{&set_params_cmd, in(ENABLE_NODE)}, {&show_ctc_parameters_cmd, in(ENABLE_NODE)}});
}

} // namespace epon
