// SPDX-License-Identifier: Apache-2.0
// Reads one table of a scenario, key by key. What is missing keeps its default; what is there must be right, and a key
// that nobody reads is an error. The first error counts.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <epon/sdk/olt.h>

#include "host/sdk_sim/model.h"

namespace sdk_sim {

// A word of a scenario and what it means.
struct ScenarioWord {
    std::string_view word;
    std::int32_t value;
};

// The first error of a scenario: "demo.toml:12: max_rtt: expected a number 0-65534".
struct ScenarioErrors {
    std::string file;
    std::string first;
};

class ScenarioReader {
  public:
    // table is a toml::table that outlives the reader.
    ScenarioReader(const void* table_node, ScenarioErrors* shared_errors) : table(table_node), errors(shared_errors) {}

    template <class Number>
    void number(std::string_view key, std::int64_t min, std::int64_t max, Number* value)
    {
        std::int64_t read = 0;
        if (integer(key, min, max, &read)) *value = static_cast<Number>(read);
    }
    // true or false, as 1 or 0.
    template <class Number>
    void flag(std::string_view key, Number* value)
    {
        bool read = false;
        if (boolean(key, &read)) *value = static_cast<Number>(read);
    }
    template <class Value, std::size_t Count>
    void word(std::string_view key, const ScenarioWord (&words)[Count], Value* value)
    {
        std::int32_t read = 0;
        if (one_of(key, words, Count, &read)) *value = static_cast<Value>(read);
    }
    // A number with a fraction, at most `decimals` digits of it, as an integer: 47.5 with one decimal is 475.
    void fixed_point(std::string_view key, int decimals, std::int64_t min, std::int64_t max, std::int32_t* value);
    // A number with a fraction.
    void real(std::string_view key, double min, double max, double* value);
    // Seconds, as milliseconds.
    void seconds(std::string_view key, Milliseconds* value);
    // A string, or an array of octets for what is no Unicode text.
    void text(std::string_view key, std::size_t max_length, std::string* value);
    void texts(std::string_view key, std::vector<std::string>* values);
    // "aa-bb-cc-dd-ee-ff"
    void mac(std::string_view key, Mac* value);
    // Four numbers with dots between: "4.1.0.7".
    void version(std::string_view key, OLT_version* value);
    // Arrays [address, value].
    void registers(std::string_view key, std::map<std::uint32_t, std::uint32_t>* values);
    // Arrays [OUI, version].
    void oui_versions(std::string_view key, std::vector<CTC_oui_version>* values);

    bool has(std::string_view key) const;
    // Readers of a table, or of each table of an array of tables: none when the key is missing.
    std::vector<ScenarioReader> tables(std::string_view key);

    // Notes that the value of a key, or the table when it has no such key, is not what it must be.
    void refuse(std::string_view key, const std::string& expected);
    // Refuses keys that were not read.
    void finish();

  private:
    bool integer(std::string_view key, std::int64_t min, std::int64_t max, std::int64_t* value);
    bool boolean(std::string_view key, bool* value);
    bool one_of(std::string_view key, const ScenarioWord* words, std::size_t count, std::int32_t* value);
    const void* find(std::string_view key);
    // Arrays of two numbers; expected describes them.
    bool pairs(std::string_view key, std::uint32_t max_first, std::uint32_t max_second, const char* expected,
               std::vector<std::pair<std::uint32_t, std::uint32_t>>* values);

    const void* table; // a toml::table
    ScenarioErrors* errors;
    std::set<std::string, std::less<>> known_keys;
};

// The root table of a scenario's text; null, and errors->first, when it is no TOML.
std::shared_ptr<const void> parse_scenario(std::string_view toml, ScenarioErrors* errors);

} // namespace sdk_sim
