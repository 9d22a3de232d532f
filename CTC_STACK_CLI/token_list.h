// SPDX-License-Identifier: Apache-2.0
// Lists that are typed as one word: tokens with ";" between them.
#pragma once

#include <cstring>

#include "CLI_GENERAL/arguments.h"

namespace epon {

class TokenList {
  public:
    enum { LENGTH = 1024 };

    // Takes the list as one word. False with its line when it is none, or too long; name names it there.
    bool read(vty* session, const char* list, const char* name)
    {
        rest_ = text_;
        return read_text(session, list, name, text_, sizeof text_);
    }

    // The next token; empty ones do not count. Null when there is none left.
    char* next()
    {
        return strtok_r(nullptr, ";", &rest_);
    }

  private:
    char text_[LENGTH + 1];
    char* rest_ = nullptr;
};

} // namespace epon
