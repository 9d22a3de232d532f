// SPDX-License-Identifier: Apache-2.0
// The host around the command library, up to where the library installs its commands.
#pragma once

namespace bench {

// The engine and the demo network, serving nobody.
void prepare_library_host();

} // namespace bench
