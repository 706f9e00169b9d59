// The log line of the message monitor: callers say what they send, and a window, when there is one, shows it.
#pragma once

#include <string>
#include <string_view>

/// Where the monitor's text goes: the window that is open now.
class MessageMonitor
{
public:
    virtual ~MessageMonitor() = default;
    virtual void clear() = 0;
    /// A line of hexadecimal text followed by two line breaks.
    virtual void append(const std::string& text) = 0;
};

/// Sets the open monitor window, or null when it closes.
void MsgLogAttach(MessageMonitor* monitor);

/// Shows a message of bytes in the monitor; an empty message empties it. Nothing happens while the log is not active
/// or no monitor is open.
void MsgLogAdd(std::string_view message);
