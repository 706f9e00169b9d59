// A step of a user that could not be done: the control is not there, the program does not answer.
#pragma once

#include <chrono>
#include <stdexcept>
#include <string>
#include <thread>

struct StepFailed : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Looks every 10 ms until `met` answers true. False when it never did within `milliseconds`.
template <typename Condition>
bool waitUntil(Condition met, int milliseconds)
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
    while (!met()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return true;
}
