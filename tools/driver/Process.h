// A program that was started from here, and its end.
#pragma once

#include <map>
#include <string>
#include <sys/types.h>
#include <vector>

class Process
{
public:
    struct Setup {
        std::vector<std::string> command;               ///< path of the executable, then its arguments
        std::string folder;                             ///< working folder; empty for this one's
        std::map<std::string, std::string> environment; ///< set besides what is inherited; an empty value unsets
        std::string output;                             ///< file for standard output and error; empty for nowhere
        int keptDescriptor = -1;                        ///< open in the program too
    };

    Process() = default;
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    /// Starts it. Throws StepFailed where that is impossible.
    void start(const Setup& setup);
    bool running();
    /// Waits for its end. False when it still runs after `milliseconds`.
    bool waitForEnd(int milliseconds);
    void send(int signal) const;
    /// Ends it at once, if it still runs, and waits.
    void kill();
    /// Its exit code; 128 and the signal's number when a signal ended it; -1 while it runs.
    int exitCode() const { return exitCode_; }
    pid_t id() const { return id_; }

private:
    void took(int status);

    pid_t id_ = -1;
    int exitCode_ = -1;
};
