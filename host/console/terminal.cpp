// SPDX-License-Identifier: Apache-2.0
#include "terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

namespace console {

WindowSize window_size(int descriptor)
{
    winsize size{};
    if (ioctl(descriptor, TIOCGWINSZ, &size) != 0 || size.ws_col == 0 || size.ws_row == 0) return {};
    return {size.ws_col, size.ws_row};
}

RawTerminal::RawTerminal(int descriptor_) : descriptor(descriptor_)
{
    enter();
}

RawTerminal::~RawTerminal()
{
    restore();
}

void RawTerminal::enter()
{
    if (raw || !isatty(descriptor) || tcgetattr(descriptor, &saved) != 0) return;
    termios mode = saved;
    cfmakeraw(&mode);
    raw = tcsetattr(descriptor, TCSADRAIN, &mode) == 0;
}

void RawTerminal::restore()
{
    if (!raw) return;
    tcsetattr(descriptor, TCSADRAIN, &saved);
    raw = false;
}

} // namespace console
