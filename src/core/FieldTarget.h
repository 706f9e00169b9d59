// The editor's highlighted field, as a style or program list sees it: it hands its choice over without knowing the
// editor. The editor alone says whether a choice is wanted: one without a highlighted field of its sort changes
// nothing, so a list that does nothing else on a click need not ask first.
#pragma once

#include <string>

class FieldTarget
{
public:
    virtual ~FieldTarget() = default;

    /// A program field is highlighted: a click in a program list is a choice for it.
    virtual bool PrgFieldSelected() const = 0;
    /// The style field is highlighted.
    virtual bool StyFieldSelected() const = 0;
    /// Track 0 to 8 of the highlighted program field; -1 without one.
    virtual int highlightedTrack() const = 0;
    /// Takes a program for the highlighted track, the changed arrangement is marked: number 0 to 127 and bank byte as
    /// the block stores them, its name and its label.
    virtual void assignProgram(int number, int bank, const std::string& name, const std::string& label) = 0;
    /// Takes a style for the highlighted field, the changed arrangement is marked: number and bank flag as the block
    /// stores them, its name and its label.
    virtual void assignStyle(int number, int bank, const std::string& name, const std::string& label) = 0;
};

/// The editor that is open now, or null.
FieldTarget* fieldTarget();
void setFieldTarget(FieldTarget* target);
