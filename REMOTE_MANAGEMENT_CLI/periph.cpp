// SPDX-License-Identifier: Apache-2.0
// The analogue-to-digital converter of an ONU: what it samples against what, and a sample.
#include "REMOTE_MANAGEMENT_CLI/periph.h"

#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/onu_show.h"
#include "REMOTE_MANAGEMENT_CLI/onu_report.h"

using namespace epon;

namespace {

constexpr Word adc_words[] = {{"adc-channel", REMOTE_ADC_CHANNEL}, {"adc-reference", REMOTE_ADC_REFERENCE}};
// Another type's name, on purpose.
constexpr WordTable adc_items = {"loopback_mode", adc_words, room_for(adc_words)};

constexpr Field value_fields[] = {{"value", FieldFormat::Uint32, 0}};
constexpr Field sample_fields[] = {{"sample", FieldFormat::Uint32, 0}};

constexpr NumberRule adc_value = unsigned_range("value", 0, 1);

} // namespace

int show_remote_ADC_config(cmd_element*, vty* session, int argc, char** argv)
{
    OnuTarget onu;
    int result;
    char** words;
    int32_t item;
    if (!read_onu_target(session, argc, argv, 1, &onu, &words, &result)) return result;
    if (!read_word(session, words[0], "config", adc_items, &item)) return -1;
    uint32_t value = 0;
    const int16_t code = REMOTE_NEPONU_get_ADC_config(onu.olt_id, onu.onu_id, item, &value);
    return show_remote_record(session, code, &value, value_fields);
}

int remote_ADC_config(cmd_element*, vty* session, int, char** argv)
{
    OnuTarget onu;
    int result;
    int32_t item;
    uint32_t value;
    if (!read_session_target(session, &onu, &result)) return result;
    if (!read_word(session, argv[0], "config", adc_items, &item)) return -1;
    if (!read_number(session, argv[1], adc_value, &value)) return -1;
    return report_remote(session, REMOTE_NEPONU_set_ADC_config(onu.olt_id, onu.onu_id, item, value));
}

int show_remote_ADC_sample(cmd_element*, vty* session, int argc, char** argv)
{
    return show_remote(session, argc, argv, REMOTE_NEPONU_get_ADC_sample, sample_fields);
}

static constinit OnuShow show_remote_ADC_config_cmd =
    remote_show<"periph adc-config",
                "Peripherals of the ONU\n"
                "Setting of its analogue-to-digital converter\n",
                "config (adc-channel|adc-reference)",
                "Which setting\n"
                "adc-channel: the input that is sampled, 0 or 1; adc-reference: 0 for 2.5 V, 1 for 3.3 V\n">(
        show_remote_ADC_config);

static constinit OnuShow show_remote_ADC_sample_cmd =
    remote_show<"periph adc-sample", "Peripherals of the ONU\n"
                                     "Present sample of its analogue-to-digital converter, 0-1023 of the reference\n">(
        show_remote_ADC_sample);

static constinit cmd_element remote_ADC_config_cmd =
    command("remote periph adc-config config (adc-channel|adc-reference) value <0-1>", remote_ADC_config,
            "Remote management: the ONU is asked by OAM\n"
            "Peripherals of the ONU\n"
            "Setting of its analogue-to-digital converter\n"
            "Which setting\n"
            "adc-channel: the input that is sampled; adc-reference: the voltage of the largest sample\n"
            "The setting's new value\n"
            "0 or 1; as a reference 0 is 2.5 V, 1 is 3.3 V\n");

namespace epon {

void install_periph()
{
    install({&show_remote_ADC_config_cmd, &show_remote_ADC_sample_cmd});
    install({{&remote_ADC_config_cmd, in(ONU_NODE)}});
}

} // namespace epon
