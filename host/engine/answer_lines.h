// SPDX-License-Identifier: Apache-2.0
// An answer comes in pieces as they were printed; whoever looks at it wants lines.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace engine {

// Longest line that is put together; a longer one is cut into pieces.
constexpr std::size_t ANSWER_LINE_LIMIT = 64 * 1024;

class AnswerLines {
  public:
    // Calls visit(line) for each line that the piece completes, without its end.
    template <class Visit>
    void write(std::string_view piece, Visit visit)
    {
        for (std::size_t end; (end = piece.find('\n')) != std::string_view::npos; piece.remove_prefix(end + 1)) {
            if (unfinished.empty())
                visit(without_return(piece.substr(0, end)));
            else
                finish(piece.substr(0, end), visit);
        }
        unfinished += piece;
        if (unfinished.size() > ANSWER_LINE_LIMIT) finish({}, visit);
    }
    // The answer is complete: a line that was never ended, if there is one.
    template <class Visit>
    void end(Visit visit)
    {
        if (!unfinished.empty()) finish({}, visit);
    }
    void clear()
    {
        unfinished.clear();
    }

  private:
    static std::string_view without_return(std::string_view line)
    {
        return line.substr(0, line.size() - (line.ends_with('\r') ? 1 : 0));
    }
    template <class Visit>
    void finish(std::string_view rest, Visit visit)
    {
        unfinished += rest;
        visit(without_return(unfinished));
        unfinished.clear();
    }

    std::string unfinished;
};

} // namespace engine
