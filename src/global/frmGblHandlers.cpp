// The window at work: what each control's move does, what the controls show of the block, the closing.
#include "global/frmGbl.h"

#include "core/ScopedFlag.h"
#include "files/Saving.h"
#include "global/GblFields.h"
#include "global/GblState.h"
#include "toolkit/QtPanelParts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QRadioButton>
#include <QSlider>

namespace
{

constexpr int TuneSlider = 0;
constexpr int VelocitySlider = 1;

template <typename List>
auto fieldAt(const List& fields, int index)
{
    return fields[static_cast<std::size_t>(index)];
}

QString number(int value) { return QString::number(value); }

} // namespace

// The controls of the block.

void frmGbl::edit(GblField field, int position, int index)
{
    if (!Gbl.GblLoading)
        static_cast<void>(gblEdit(Tag, field, position, index)); // sliders and marks have no position that is refused
}

void frmGbl::chooseRow(QComboBox* combo, GblField field, int row)
{
    if (Gbl.GblLoading || row < 0)
        return;
    if (!gblEdit(Tag, field, row))
        combo->setCurrentIndex(-1); // what cannot be stored is no choice; the byte stays as it is
}

void frmGbl::GblHScroll1_Change(int index, int value)
{
    GblHScroll1_Scroll(index, value);
    edit(fieldAt(GblFields::GblHScroll1, index), value);
}

void frmGbl::GblHScroll1_Scroll(int index, int value)
{
    QLabel* label = GblLab1[fieldAt(GblFields::SliderLabel, index)];
    label->setText(index == VelocitySlider ? QString::fromStdString(gblVelocityText(value)) : number(value));
}

void frmGbl::GblCombo1_Click(int index, int row)
{
    chooseRow(GblCombo1[index], fieldAt(GblFields::GblCombo1, index), row);
}

void frmGbl::GblCheck1_Click(int index, bool checked) { edit(fieldAt(GblFields::GblCheck1, index), checked ? 1 : 0); }

void frmGbl::GblOption1_Click()
{
    // Required: whichever of the two was chosen, the first one alone decides.
    edit(GblField::DamperPolarity, GblOption1[0]->isChecked() ? 1 : 0);
}

void frmGbl::VScroll2_Change(int index, int value)
{
    Lab2[index]->setText(number(value));
    edit(GblField::UserScale, value, index);
}

void frmGbl::Combo3_Click(int index, int row)
{
    if (index < FirstChannelCombo) {
        chooseRow(Combo3[index], fieldAt(GblFields::Combo3, index), row);
        return;
    }
    // A channel of the program's own settings: the next message has it, nothing goes out for it.
    if (!Gbl.GblLoading && row >= 0)
        gblSetChannel(index - FirstChannelCombo, row);
}

void frmGbl::Check3_Click(bool checked) { edit(GblField::HarmonyToneGenerator, checked ? 1 : 0); }

void frmGbl::HScroll3_Change(int index, int value)
{
    if (Gbl.GblLoading)
        return;
    showRange(index);
    edit(fieldAt(GblFields::HScroll3, index), value);
}

void frmGbl::CommResetUS_Click(int scale)
{
    const ScopedFlag loading{Gbl.GblLoading};
    for (int note = 0; note < GblBlock::NotesOfAScale; ++note)
        VScroll2[scale * GblBlock::NotesOfAScale + note]->setValue(0);
    gblResetScale(Tag, scale);
    // Required: the flag is still up, so nothing goes out and nothing counts as modified. The instrument hears of the
    // reset with the next other change.
    GblSend(Tag);
}

// Showing the block.

void frmGbl::GblAggFrm()
{
    // Showing a byte never writes it: what a control cannot show as it stands, or shows in another sense than it would
    // store it, must not be changed by being looked at.
    const ScopedFlag loading{Gbl.GblLoading};
    fillGeneral();
    fillScales();
    fillHarmony();
    fillChannels();
}

void frmGbl::showCombo(QComboBox* combo, GblField field) const { showPosition(combo, gblShown(Tag, field)); }

void frmGbl::showSlider(int index)
{
    GblHScroll1[index]->setValue(gblShown(Tag, fieldAt(GblFields::GblHScroll1, index)));
    GblHScroll1_Scroll(index, GblHScroll1[index]->value());
}

void frmGbl::showCombos(std::initializer_list<int> indexes)
{
    for (const int index : indexes)
        showCombo(GblCombo1[index], fieldAt(GblFields::GblCombo1, index));
}

void frmGbl::fillGeneral()
{
    showSlider(TuneSlider);
    showCombos({2, 3, 5}); // curves, chord recognition
    for (int index = 0; index < GblCheck1.count(); ++index)
        GblCheck1[index]->setChecked(gblShown(Tag, fieldAt(GblFields::GblCheck1, index)) != 0);
    showSlider(VelocitySlider);
    GblOption1[gblShown(Tag, GblField::DamperPolarity) != 0 ? 0 : 1]->setChecked(true);
    showCombos({16, 17, 18, 19});           // joystick, echo back
    showCombos({10, 6, 7, 8, 9});           // pedal, scales
    showCombos({11, 12, 13, 14, 15, 0, 1}); // controllers, octaves
}

void frmGbl::fillScales()
{
    for (int index = 0; index < VScroll2.count(); ++index) {
        VScroll2[index]->setValue(gblShown(Tag, GblField::UserScale, index));
        Lab2[index]->setText(number(VScroll2[index]->value()));
    }
}

void frmGbl::fillHarmony()
{
    for (int index = 0; index < FirstChannelCombo; ++index)
        showCombo(Combo3[index], fieldAt(GblFields::Combo3, index));
    Check3->setChecked(gblShown(Tag, GblField::HarmonyToneGenerator) != 0);
    for (int index = 0; index < HScroll3.count(); ++index) {
        HScroll3[index]->setValue(gblShown(Tag, fieldAt(GblFields::HScroll3, index)));
        showRange(index);
    }
}

void frmGbl::fillChannels()
{
    for (int place = 0; place < GblChannelCount; ++place)
        showPosition(Combo3[FirstChannelCombo + place], gblChannel(place));
}

void frmGbl::showRange(int index)
{
    Lab3[fieldAt(GblFields::RangeLabel, index)]->setText(QString::fromStdString(NoteName(HScroll3[index]->value())));
}

// The closing.

bool frmGbl::queryUnload() { return AgreeToClose(Tag, GblCaption(Tag)); }

void frmGbl::unload()
{
    if (Tag.kind() == WindowKind::GlobalInstrument)
        keepInRow(WindowKind::GlobalInstrument);
    GblSlotLeave(Tag);
}
