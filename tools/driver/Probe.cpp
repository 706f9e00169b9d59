// Requests and answers as lines of text.
#include "driver/Probe.h"

#include "driver/StepFailed.h"

#include <algorithm>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

Probe::~Probe() { leave(); }

void Probe::leave()
{
    if (descriptor_ >= 0)
        close(descriptor_);
    descriptor_ = -1;
    heard_.clear();
}

bool Probe::join(const std::string& socketPath)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (socketPath.size() >= sizeof address.sun_path)
        throw StepFailed("the path of the probe's socket is too long: " + socketPath);
    std::copy(socketPath.begin(), socketPath.end(), address.sun_path);
    descriptor_ = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (connect(descriptor_, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0)
        return true;
    leave();
    return false;
}

std::vector<std::string> Probe::ask(const std::vector<std::string>& words)
{
    std::string request;
    for (const std::string& word : words)
        request += (request.empty() ? "" : "\t") + word;
    request += '\n';
    if (send(descriptor_, request.data(), request.size(), MSG_NOSIGNAL) != static_cast<ssize_t>(request.size()))
        throw StepFailed("the program is gone");

    std::vector<std::string> lines;
    for (;;) {
        for (std::size_t end = heard_.find('\n'); end != std::string::npos; end = heard_.find('\n')) {
            lines.push_back(heard_.substr(0, end));
            heard_.erase(0, end + 1);
            if (lines.back() == ".") {
                lines.pop_back();
                return lines;
            }
        }
        pollfd ready{descriptor_, POLLIN, 0};
        if (poll(&ready, 1, 30000) != 1)
            throw StepFailed("the program does not answer: " + request);
        char piece[4096];
        const ssize_t count = recv(descriptor_, piece, sizeof piece, 0);
        if (count <= 0)
            throw StepFailed("the program is gone");
        heard_.append(piece, static_cast<std::size_t>(count));
    }
}
