// Tarvolyne beside a real instrument, on the MIDI ports of this machine.
#include "midi/AlsaMidiService.h"
#include "shell/QtProgram.h"

int main(int argc, char** argv)
{
    AlsaMidiService service;
    return runProgram(argc, argv, service, {});
}
