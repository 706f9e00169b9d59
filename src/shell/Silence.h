// While one stands, the program has no voice: what is reported is not shown, what is asked is answered by No.
#pragma once

#include "core/Dichiarazioni.h"

class Silence
{
public:
    Silence() : voice_(App.ui) { App.ui = nullptr; }
    ~Silence() { App.ui = voice_; }
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;

private:
    UserInterface* voice_;
};
