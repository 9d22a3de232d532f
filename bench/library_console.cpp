// SPDX-License-Identifier: Apache-2.0
#include "bench/library_console.h"

#include <cstdlib>
#include <string>

#include "host/engine/engine_host.h"
#include "host/node_rules.h"
#include "host/sdk_sim/sdk_sim.h"

namespace bench {

void prepare_library_host()
{
    engine::Options options;
    options.serve = false;
    std::string error;
    if (!engine::prepare(options, &error)) abort();
    if (!sdk_sim::load_scenario_text(sdk_sim::demo_scenario(), "demo", &error)) abort();
    install_node_rules();
}

} // namespace bench
