// Starts programs by fork and exec, and never leaves one behind.
#include "driver/Process.h"

#include "driver/StepFailed.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

/// The environment of the program: this one's, changed by the set-up.
std::vector<std::string> environmentOf(const Process::Setup& setup)
{
    std::vector<std::string> lines;
    for (char** entry = environ; *entry; ++entry) {
        const std::string line = *entry;
        if (setup.environment.count(line.substr(0, line.find('='))) == 0)
            lines.push_back(line);
    }
    for (const auto& [name, value] : setup.environment)
        if (!value.empty())
            lines.push_back(name + "=" + value);
    return lines;
}

std::vector<char*> pointersTo(std::vector<std::string>& texts)
{
    std::vector<char*> pointers;
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

} // namespace

Process::~Process() { kill(); }

void Process::start(const Setup& setup)
{
    exitCode_ = -1;
    std::vector<std::string> command = setup.command;
    std::vector<std::string> environment = environmentOf(setup);
    const std::vector<char*> arguments = pointersTo(command);
    const std::vector<char*> variables = pointersTo(environment);
    const std::string output = setup.output.empty() ? "/dev/null" : setup.output;

    id_ = fork();
    if (id_ < 0)
        throw StepFailed(std::string("fork: ") + std::strerror(errno));
    if (id_ == 0) {
        // A group of its own, so that a key at the terminal ends the driver, which then ends its programs.
        setpgid(0, 0);
        const int log = open(output.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0644);
        dup2(open("/dev/null", O_RDONLY), 0);
        dup2(log, 1);
        dup2(log, 2);
        for (int descriptor = 3; descriptor < 256; ++descriptor)
            if (descriptor != setup.keptDescriptor)
                close(descriptor);
        if (setup.folder.empty() || chdir(setup.folder.c_str()) == 0)
            execvpe(arguments[0], arguments.data(), variables.data());
        _exit(127);
    }
}

void Process::took(int status)
{
    exitCode_ = WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
    id_ = -1;
}

bool Process::running()
{
    if (id_ < 0)
        return false;
    int status = 0;
    if (waitpid(id_, &status, WNOHANG) != id_)
        return true;
    took(status);
    return false;
}

bool Process::waitForEnd(int milliseconds)
{
    return waitUntil([this] { return !running(); }, milliseconds);
}

void Process::send(int signal) const
{
    if (id_ > 0)
        ::kill(id_, signal);
}

void Process::kill()
{
    if (!running())
        return;
    send(SIGKILL);
    int status = 0;
    if (waitpid(id_, &status, 0) == id_)
        took(status);
}
