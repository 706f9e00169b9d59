// The test's side of the device: plug in, ask, pull out.
#include "UsbMidiDevice.h"

#include "UsbMidiShared.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <new>
#include <stdexcept>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

constexpr double SecondNs = 1e9;

} // namespace

double nowSeconds()
{
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / SecondNs;
}

void sleepSeconds(double seconds)
{
    const auto whole = static_cast<time_t>(seconds);
    timespec time{whole, static_cast<long>((seconds - static_cast<double>(whole)) * SecondNs)};
    while (nanosleep(&time, &time) != 0) {
    }
}

int clientNamed(const std::string& name)
{
    // Client  20 : "DIN Cable" [Kernel Legacy]
    std::ifstream clients("/proc/asound/seq/clients");
    for (std::string line; std::getline(clients, line);) {
        int number = -1;
        if (std::sscanf(line.c_str(), "Client %d :", &number) == 1 &&
            line.find(": \"" + name + "\"") != std::string::npos)
            return number;
    }
    return -1;
}

std::string outputOf(const std::string& command, int* status)
{
    std::string text;
    std::FILE* pipe = popen((command + " 2>&1").c_str(), "r");
    if (pipe == nullptr)
        return text;
    char part[512];
    while (const std::size_t count = std::fread(part, 1, sizeof part, pipe))
        text.append(part, count);
    const int ended = pclose(pipe);
    if (status != nullptr)
        *status = WIFEXITED(ended) ? WEXITSTATUS(ended) : -1;
    return text;
}

UsbMidiDevice::UsbMidiDevice(const UsbMidiOptions& options) : options_(options)
{
    void* memory = mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    shared_ = new (memory) Shared;
    process_ = fork();
    if (process_ == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        // A sequencer client lives until the last process that knows its file has closed it.
        for (int file = 3; file < 256; ++file)
            close(file);
        runUsbMidiDevice(options_, *shared_);
        _exit(0);
    }
    if (!waitUntil([this] { return (client_ = clientNamed(options_.name)) >= 0; }))
        throw std::runtime_error("the kernel does not see " + options_.name);
}

UsbMidiDevice::~UsbMidiDevice()
{
    unplug();
    munmap(shared_, sizeof(Shared));
}

void UsbMidiDevice::unplug()
{
    if (process_ < 0)
        return;
    shared_->unplugNow = true;
    int status = 0;
    waitpid(process_, &status, 0);
    process_ = -1;
    waitUntil([this] { return clientNamed(options_.name) != client_; });
}

int UsbMidiDevice::card() const
{
    //  1 [Cable          ]: USB-Audio - DIN Cable
    std::ifstream cards("/proc/asound/cards");
    for (std::string line; std::getline(cards, line);) {
        int number = -1;
        if (std::sscanf(line.c_str(), " %d [", &number) == 1 && line.find("- " + options_.name) != std::string::npos)
            return number;
    }
    return -1;
}

void UsbMidiDevice::stallAt(int bytes, double seconds)
{
    shared_->stallNs = static_cast<std::int64_t>(seconds * SecondNs);
    shared_->stallAt = bytes;
}

void UsbMidiDevice::unplugAt(int bytes) { shared_->unplugAt = bytes; }

void UsbMidiDevice::play(const std::string& bytes)
{
    std::int64_t at = shared_->played;
    for (const char byte : bytes)
        shared_->keys.at(static_cast<std::size_t>(at++)) = byte;
    shared_->played = at;
}

std::string UsbMidiDevice::received() const
{
    return {shared_->bytes.data(), static_cast<std::size_t>(shared_->count)};
}

std::string UsbMidiDevice::receivedInTheEnd() const
{
    std::int64_t before = -1;
    while (before != shared_->count || nowSeconds() < lastByteOffAt()) {
        before = shared_->count;
        sleepSeconds(0.5);
    }
    return received();
}

void UsbMidiDevice::forget()
{
    shared_->count = 0;
    shared_->lost = 0;
}

int UsbMidiDevice::lost() const { return static_cast<int>(shared_->lost); }

double UsbMidiDevice::wireSeconds() const
{
    return static_cast<double>(shared_->lastOffAt - shared_->firstAt) / SecondNs;
}

double UsbMidiDevice::lastByteOffAt() const { return static_cast<double>(shared_->lastOffAt) / SecondNs; }

double UsbMidiDevice::unpluggedAt() const { return static_cast<double>(shared_->unpluggedAt) / SecondNs; }
