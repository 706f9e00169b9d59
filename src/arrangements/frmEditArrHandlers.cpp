// The editor at work: what each control's move does, what the fields show of ArrEditBuf, the highlight, the closing.
#include "arrangements/frmEditArr.h"

#include "arrangements/ArrTexts.h"
#include "core/Reports.h"
#include "core/ScopedFlag.h"
#include "files/RowLabels.h"
#include "toolkit/QtPanelParts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QTabWidget>

#include <algorithm>

namespace
{

using namespace EditFields;

constexpr int ArrangementChanged = 2; ///< question code
constexpr const char* On = "On";
constexpr const char* Off = "Off";

// Colours of the switches and of the highlight, blue-green-red.
namespace EditColour
{
constexpr int MuteOn = 255;
constexpr int SoloOn = 65280;
constexpr int Off = 0xC0C0C0;
constexpr int Highlight = 0xFFFF00;
constexpr int HighlightText = 0;
} // namespace EditColour

std::string_view editText(Field field) { return slice(Arr.ArrEditBuf, field); }

int editByte(Field field) { return byteAt(Arr.ArrEditBuf, field.offset); }

QString number(int value) { return QString::number(value); }

template <typename List>
auto fieldAt(const List& fields, int index)
{
    return fields[static_cast<std::size_t>(index)];
}

} // namespace

frmEditArr::~frmEditArr() { close_(); }

// The fields.

void frmEditArr::Text1_Click(int index)
{
    if (isProgramLabel(index) || fieldAt(FieldSelected, index))
        EditFieldClear();
    else
        EditFieldSelect(index);
}

void frmEditArr::Text1_Change(const QString& text)
{
    if (Arr.ArrEditLoading)
        return;
    EditFieldClear();
    showEditCaption(text);
    arrEditName(text.toLatin1().toStdString());
}

void frmEditArr::EditFieldSelect(int index)
{
    EditFieldClear();
    QPalette colours = normalField_;
    colours.setColor(QPalette::Base, colourOf(EditColour::Highlight));
    colours.setColor(QPalette::Text, colourOf(EditColour::HighlightText));
    Text1[index]->setPalette(colours);
    FieldSelected[static_cast<std::size_t>(index)] = true;
}

void frmEditArr::EditFieldClear()
{
    const auto selected = std::find(FieldSelected.begin(), FieldSelected.end(), true);
    if (selected == FieldSelected.end())
        return;
    Text1[static_cast<int>(selected - FieldSelected.begin())]->setPalette(normalField_);
    *selected = false;
}

int frmEditArr::highlightedTrack() const
{
    const auto selected = std::find(FieldSelected.begin() + TrackText, FieldSelected.end(), true);
    return selected == FieldSelected.end() ? -1 : trackOfText(static_cast<int>(selected - FieldSelected.begin()));
}

void frmEditArr::assignProgram(int programNumber, int bank, const std::string& name, const std::string& label)
{
    const int track = highlightedTrack();
    if (track < 0)
        return;
    arrEditProgram(track, programNumber, bank, name);
    showText(TrackText + 2 * track, name);
    showText(TrackText + 2 * track + 1, label);
}

void frmEditArr::assignStyle(int styleNumber, int bank, const std::string& name, const std::string& label)
{
    if (!StyFieldSelected())
        return;
    arrEditStyle(styleNumber, bank, name);
    showText(StyleText, name);
    styleLabel->setText(fromPanel(label));
}

// The controls of the block. Each takes the highlight away, then the byte changes and its message goes out; what the
// window shows of it comes last.

void frmEditArr::Combo1_Click(int index, int row)
{
    if (Arr.ArrEditLoading || row < 0)
        return;
    EditFieldClear();
    if (index == VariationSelector) {
        showDDrumMap();
        return;
    }
    const ArrGeneral field = fieldAt(EditFields::Combo1, index);
    // Required: the designations of kick and snare drum are shown, and a choice of another changes nothing anywhere;
    // so the list goes back to what the arrangement has.
    if (arrParameter(field).kept) {
        const ScopedFlag loading{Arr.ArrEditLoading};
        showPosition(Combo1[index], arrPosition(Arr.ArrEditBuf, field));
        return;
    }
    arrEdit(field, row, index);
}

void frmEditArr::Combo2_Click(int index, int row)
{
    if (Arr.ArrEditLoading || row < 0)
        return;
    constexpr int ListsOfATrack = static_cast<int>(EditFields::Combo2.size());
    EditFieldClear();
    arrEdit(index / ListsOfATrack, fieldAt(EditFields::Combo2, index % ListsOfATrack), row, index);
}

void frmEditArr::Check1_Click(int index, bool checked)
{
    // Required: no guard here. When the editor fills, a check mark that changes writes its bit again, and the damp
    // switches and the chord latch reach the instrument, which so follows the arrangement that is opened.
    EditFieldClear();
    arrEdit(fieldAt(EditFields::Check1, index), checked ? 1 : 0, index);
}

void frmEditArr::VScroll1_Change(int index, int value)
{
    if (Arr.ArrEditLoading)
        return;
    EditFieldClear();
    if (index == 0) {
        arrEdit(ArrGeneral::Tempo, value, index);
        Label1[TempoLabel]->setText(number(value));
        return;
    }
    const int track = (index - 1) / 2;
    const bool volume = index % 2 == 1;
    arrEdit(track, volume ? ArrTrack::Volume : ArrTrack::Pan, value, index);
    volume ? showVolume(track) : showPan(track);
}

void frmEditArr::HScroll1_Change(int index, int value)
{
    if (Arr.ArrEditLoading)
        return;
    EditFieldClear();
    if (index != 0) {
        arrEdit(dDrumMap(Combo1[VariationSelector]->currentIndex()), value, index);
        Label1[DrumMapLabel]->setText(number(value));
        return;
    }
    arrEdit(ArrGeneral::SplitPoint, value, index);
    SplitNoteShow(value);
    if (Arr.keyboardSplit)
        Arr.keyboardSplit(value);
}

void frmEditArr::EffCombo_Click(int index, int row)
{
    if (Arr.WindowFilling || row < 0)
        return;
    EditFieldClear();
    arrEdit(fieldAt(EditFields::EffCombo, index), row, index);
    showEffectLabel(index);
}

// The controls of the instrument alone: nothing of them is stored.

void frmEditArr::EffComm_Click(int index)
{
    const bool on = EffComm[index]->text() == QLatin1String(Off);
    arrEdit(fieldAt(EditFields::EffComm, index), on ? 1 : 0, index);
    EffComm[index]->setText(QLatin1String(on ? On : Off));
    EffComm[index]->setAccessibleDescription(EffComm[index]->text());
}

void frmEditArr::CommM_Click(int track)
{
    switches_.pressMute(track);
    showTrackSwitches();
}

void frmEditArr::CommS_Click(int track)
{
    switches_.pressSolo(track);
    showTrackSwitches();
}

void frmEditArr::showTrackSwitches()
{
    for (int track = 0; track < ArrLayout::TrackCount; ++track) {
        const bool mute = fieldAt(switches_.TrackMute, track);
        const bool solo = fieldAt(switches_.TrackSolo, track);
        showButtonColour(CommM[track], mute ? EditColour::MuteOn : EditColour::Off);
        showButtonColour(CommS[track], solo ? EditColour::SoloOn : EditColour::Off);
        CommM[track]->setChecked(mute);
        CommS[track]->setChecked(solo);
    }
}

// Showing ArrEditBuf.

void frmEditArr::ArrEditFill()
{
    {
        const ScopedFlag loading{Arr.ArrEditLoading};
        fillGeneral();
        fillEffects();
        fillTracks();
    }
    showEditCaption(fromPanel(editText(WrittenName)));
    Arr.ArrEditDirty = false;
}

void frmEditArr::fillGeneral()
{
    showText(NameText, trimRight(editText(ArrBlock::Name)));
    showText(StyleText, trimRight(editText(ArrEditLayout::StyleName)));
    styleLabel->setText(fromPanel(styleLabelText(editByte(ArrBlock::StyleNumber), editByte(ArrBlock::StyleBank))));

    VScroll1[0]->setValue(arrPosition(Arr.ArrEditBuf, ArrGeneral::Tempo));
    Label1[TempoLabel]->setText(number(VScroll1[0]->value()));
    HScroll1[0]->setValue(arrPosition(Arr.ArrEditBuf, ArrGeneral::SplitPoint));
    SplitNoteShow(HScroll1[0]->value());
    for (int index = 0; index < Combo1.count(); ++index)
        if (index != VariationSelector)
            showPosition(Combo1[index], arrPosition(Arr.ArrEditBuf, fieldAt(EditFields::Combo1, index)));
    Combo1[VariationSelector]->setCurrentIndex(0);
    showDDrumMap();
    for (int index = 0; index < Check1.count(); ++index)
        Check1[index]->setChecked(arrPosition(Arr.ArrEditBuf, fieldAt(EditFields::Check1, index)) != 0);
}

void frmEditArr::fillEffects()
{
    const ScopedFlag filling{Arr.WindowFilling};
    for (int index = 0; index < EffCombo.count(); ++index) {
        showPosition(EffCombo[index], arrPosition(Arr.ArrEditBuf, fieldAt(EditFields::EffCombo, index)));
        showEffectLabel(index);
    }
}

void frmEditArr::fillTracks()
{
    constexpr int ListsOfATrack = static_cast<int>(EditFields::Combo2.size());
    for (int track = 0; track < ArrLayout::TrackCount; ++track) {
        showProgram(track);
        VScroll1[2 * track + 1]->setValue(arrPosition(Arr.ArrEditBuf, track, ArrTrack::Volume));
        VScroll1[2 * track + 2]->setValue(arrPosition(Arr.ArrEditBuf, track, ArrTrack::Pan));
        showVolume(track);
        showPan(track);
    }
    for (int index = 0; index < Combo2.count(); ++index) {
        const ArrTrack field = fieldAt(EditFields::Combo2, index % ListsOfATrack);
        showPosition(Combo2[index], arrPosition(Arr.ArrEditBuf, index / ListsOfATrack, field));
    }
}

/// A text longer than its field is seen from its beginning.
void frmEditArr::showText(int index, std::string_view text)
{
    Text1[index]->setText(fromPanel(text));
    Text1[index]->setCursorPosition(0);
}

void frmEditArr::showProgram(int track)
{
    const ProgramText program = trackProgram(Arr.ArrEditBuf, track);
    showText(TrackText + 2 * track, program.name);
    showText(TrackText + 2 * track + 1, program.label);
}

void frmEditArr::showVolume(int track)
{
    Label2[2 * track + 1]->setText(number(arrPosition(Arr.ArrEditBuf, track, ArrTrack::Volume)));
}

void frmEditArr::showPan(int track)
{
    const int stored = byteAt(Arr.ArrEditBuf, ArrBlock::track(track).offset + ArrBlock::Track::Pan);
    Label2[2 * track + 2]->setText(fromPanel(panText(stored)));
}

void frmEditArr::SplitNoteShow(int note)
{
    if (const auto text = splitNoteText(note))
        Label1[SplitLabel]->setText(fromPanel(*text));
}

/// A byte out of range is shown at the nearest end of the bar and stays as it is until the bar is moved.
void frmEditArr::showDDrumMap()
{
    const ScopedFlag loading{Arr.ArrEditLoading};
    HScroll1[1]->setValue(arrPosition(Arr.ArrEditBuf, dDrumMap(Combo1[VariationSelector]->currentIndex())));
    Label1[DrumMapLabel]->setText(number(HScroll1[1]->value()));
}

void frmEditArr::showEffectLabel(int index)
{
    const int stored = byteAt(Arr.ArrEditBuf, arrParameter(fieldAt(EditFields::EffCombo, index)).offset);
    EffLab1[index]->setText(fromPanel(effectLabel(index + 1, stored)));
}

void frmEditArr::showEditCaption(const QString& name)
{
    const std::string stem(trimRight(editText(ArrEditLayout::SourceStem)));
    caption_ = QStringLiteral("Edit Arrangement  ") + QFile::decodeName(QByteArray::fromStdString(stem)) +
               QStringLiteral(".arr / ") + fromPanel(rowName(name.toLatin1().toStdString()));
    QString title = caption_;
    setWindowTitle(title.replace(QLatin1String("[*]"), QLatin1String("[*][*]"))); // "[*]" alone would be taken away
}

// The closing.

bool frmEditArr::queryUnload()
{
    Arr.ArrCloseCancelled = false;
    const bool asked = App.AppClosing && discardedAtExit_ == App.ExitAttempt;
    if (!Arr.ArrEditDirty || asked)
        return true;
    switch (AskSaveCancel(ArrangementChanged, caption_.toUtf8().toStdString())) {
    case Answer::Yes:
        return ArrEditStore() == 0; // a refusal has been reported; the edit and the editor stay
    case Answer::No:
        // At exit the window that the arrangement came from closes the editor as well: the user is asked once.
        discardedAtExit_ = App.AppClosing ? App.ExitAttempt : 0;
        return true;
    default:
        Arr.ArrCloseCancelled = true;
        return false;
    }
}

void frmEditArr::unload()
{
    keepInRow(WindowKind::EditArr);
    EditFieldClear();
    close_();
}

void frmEditArr::close_()
{
    if (Arr.editor != this)
        return;
    Arr.editor = nullptr;
    setFieldTarget(nullptr);
    Arr.ArrEditOpen = false;
    Arr.ArrEditDirty = false;
}
