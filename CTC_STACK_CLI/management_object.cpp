// SPDX-License-Identifier: Apache-2.0
// The part of an ONU that a command acts on, as the words of its management object tell it.
#include <cstring>
#include <span>

#include <epon/cli.h>

#include "CLI_GENERAL/arguments.h"

using namespace epon;

namespace {

constexpr Word frame_words[] = {{"irrelevant", 0}};
constexpr Word slot_words[] = {{"irrelevant", 0}, {"all-cards", CTC_ALL_CARDS}};
constexpr Word port_words[] = {{"irrelevant", 0}, {"all-ports", CTC_ALL_PORTS}};
constexpr Word port_type_words[] = {
    {"ethernet", CTC_PORT_ETHERNET}, {"voip", CTC_PORT_VOIP}, {"adsl2-plus", CTC_PORT_ADSL2_PLUS},
    {"vdsl2", CTC_PORT_VDSL2},       {"e1", CTC_PORT_E1},     {"irrelevant", CTC_PORT_IRRELEVANT}};
constexpr WordTable port_types = {"port_type", port_type_words};

// One of the words, or a number.
template <class T>
bool read_part(vty* session, const char* text, std::span<const Word> words, const NumberRule& rule, T* part)
{
    for (const Word& word : words) {
        if (strcmp(text, word.text) != 0) continue;
        *part = static_cast<T>(word.value);
        return true;
    }
    return read_number(session, text, rule, part);
}

} // namespace

int Parse_object_management_index(vty* session, const char* frame, const char* slot, const char* port,
                                  const char* port_type, CTC_management_object_index* index)
{
    const bool is_read =
        read_part(session, frame, frame_words, unsigned_range("frame_number", 0, 255), &index->frame_number) &&
        read_part(session, slot, slot_words, unsigned_range("slot_number", 0, 255), &index->slot_number) &&
        read_part(session, port, port_words, unsigned_32("port_number"), &index->port_number) &&
        read_word(session, port_type, "port_type", port_types, &index->port_type);
    return is_read ? 0 : -1;
}
