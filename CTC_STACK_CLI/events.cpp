// SPDX-License-Identifier: Apache-2.0
// What operators see of the CTC stack's events. The handlers are called on the stack's threads. Their lines end with a
// bare line feed on every kind of session.
#include "CTC_STACK_CLI/events.h"

#include <cstdio>
#include <cstring>

#include <epon/cli.h>

#include "CLI_GENERAL/output.h"

using namespace epon;

namespace {

enum { LINE_SIZE = 400, DEVICE_TEXT_SIZE = 256, RECORD_LINE_SIZE = 48, RECORDS_MAX = 255 };

constexpr Word encryption_words[] = {{"COMPLETE ENCRYPTION\n", CTC_ENCRYPTION_COMPLETE},
                                     {"ENCRYPTION FAILED\n", CTC_ENCRYPTION_FAILED}};
constexpr Word discovery_words[] = {{"DISCOVERY COMPLETE\n", CTC_DISCOVERY_COMPLETE},
                                    {"OAM DISCOVERY FAILED\n", CTC_DISCOVERY_FAILED}};

// Empty for every other state.
const char* text_of_state(std::span<const Word> words, int32_t state)
{
    for (const Word& word : words) {
        if (word.value == state) return word.text;
    }
    return "";
}

// Text that an ONU sent, fit for a terminal.
void clean(char text[DEVICE_TEXT_SIZE], const char* source)
{
    if (source == nullptr) source = "";
    clean_device_text(text, DEVICE_TEXT_SIZE, source, strlen(source));
}

} // namespace

void Extended_oam_discovery_handler(int16_t olt_id, int16_t llid, int32_t state, uint8_t number_of_records,
                                    const CTC_oui_version* records)
{
    char text[LINE_SIZE + RECORDS_MAX * RECORD_LINE_SIZE];
    int length = snprintf(text, LINE_SIZE, "Got ONU extended OAM event. OLT: %d, LLID: %d state:%s", olt_id, llid,
                          text_of_state(discovery_words, state));
    for (unsigned int i = 0; records != nullptr && i < number_of_records; ++i) {
        const CTC_oui_version& record = records[i];
        length += snprintf(text + length, RECORD_LINE_SIZE, "record %u: oui 0x%02x%02x%02x version %u\n", i,
                           record.oui[0], record.oui[1], record.oui[2], record.version);
    }
    print_to_notified(text, "");
}

void Update_encryption_handler(int16_t olt_id, int16_t llid, int32_t state)
{
    // Which link it was goes to the log alone.
    NEPLOG_print(NEPLOG_SEVERITY_INFO, CTC_STACK_MODULE, NEPLOG_LEVEL_TRACE, "event-flow", olt_id, llid,
                 "Got ONU update encryption event. OLT: %d, LLID: %d state:", olt_id, llid);
    const char* text = text_of_state(encryption_words, state);
    if (*text != '\0') print_to_notified(text, "");
}

void Update_onu_error_handler(int16_t olt_id, int16_t onu_id, int32_t error_code, const char* error_message)
{
    char message[DEVICE_TEXT_SIZE];
    char text[LINE_SIZE];
    clean(message, error_message);
    snprintf(text, sizeof text, "Got Update ONU error event. OLT: %d, ONU: %d. error code:%d, error message:%s\n",
             olt_id, onu_id, static_cast<int>(error_code), message);
    print_to_notified(text, "");
}

char* Update_onu_request_handler(int16_t olt_id, int16_t onu_id, const char* information, uint8_t* handled,
                                 CTC_update_file* file, int16_t* result)
{
    char request[DEVICE_TEXT_SIZE];
    char text[LINE_SIZE];
    clean(request, information);
    snprintf(text, sizeof text, "Got ONU Update request event from OLT: %d, ONU: %d information:%s\n", olt_id, onu_id,
             request);
    print_to_notified(text, "");
    // The folder is the one of the host that stores firmware for ONUs, whatever the system of this one.
    if (information == nullptr) information = "";
    information += strspn(information, " ");
    snprintf(file->name, sizeof file->name, "C:\\%.*s", static_cast<int>(strcspn(information, " ")), information);
    *handled = 1;
    *result = 0;
    return file->name;
}

void Event_notification_handler(int16_t olt_id, int16_t onu_id, uint16_t leaf, const CTC_management_object_index*,
                                uint8_t, uint32_t, uint16_t alarm_id)
{
    char text[LINE_SIZE];
    snprintf(text, sizeof text, "Got Event notification. OLT: %d, ONU: %d, leaf: %d, alarm id: 0x%x\n", olt_id, onu_id,
             leaf, alarm_id);
    print_to_notified(text, "");
}
