// SPDX-License-Identifier: Apache-2.0
#include "host/secret_words.h"

#include "host/engine/engine_host.h"

namespace {

constexpr engine::SecretWord secret_words[] = {
    {"key"},        // of 802.1X, of the encryption by remote management
    {"set-key"},    // of the encryption by the OLT
    {"password"},   // of a LOID
    {"mka-cak", 2}, // "mka-cak value VALUE"
};

} // namespace

void install_secret_words()
{
    engine::set_secret_words(secret_words);
}
