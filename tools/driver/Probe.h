// The other end of the probe's socket: asks the running program what it shows.
#pragma once

#include <string>
#include <vector>

class Probe
{
public:
    Probe() = default;
    ~Probe();
    Probe(const Probe&) = delete;
    Probe& operator=(const Probe&) = delete;

    /// True once the program listens on the socket.
    bool join(const std::string& socketPath);
    void leave();
    bool joined() const { return descriptor_ >= 0; }

    /// The lines of the answer. Throws StepFailed when the program does not answer in 30 seconds.
    std::vector<std::string> ask(const std::vector<std::string>& words);

private:
    int descriptor_ = -1;
    std::string heard_;
};
