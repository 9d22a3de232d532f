// SPDX-License-Identifier: Apache-2.0
// The words of this console's commands that stand before a secret.
#pragma once

// Tells the engine, which keeps such secrets out of history and audit.
void install_secret_words();
