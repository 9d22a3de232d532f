// SPDX-License-Identifier: Apache-2.0
// Any text as a scenario: it is refused with one line and changes nothing, or the network that it describes lives.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "host/sdk_sim/sdk_sim.h"
#include "tests/fuzz/require.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::string error;
    require(sdk_sim::load_scenario_text("name = \"BEFORE\"\n", "before", &error), error.c_str());
    error.clear();
    if (sdk_sim::load_scenario_text({reinterpret_cast<const char*>(data), size}, "fuzz", &error)) {
        sdk_sim::advance_clock(100000);
    } else {
        require(error.starts_with("fuzz"), "a refusal names the file");
        require(error.find('\n') == std::string::npos, "in one line");
        require(sdk_sim::network_name() == "BEFORE", "and changes nothing");
    }
    return 0;
}
