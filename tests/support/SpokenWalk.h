// A walk over all that a screen reader is told of a window: each control's role, name and value, and no two of a frame
// that cannot be told apart.
#pragma once

#include <QAccessible>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QSlider>
#include <QTabWidget>
#include <gtest/gtest.h>
#include <map>

class SpokenWalk
{
public:
    using Face = QAccessibleInterface;

    /// Expects all of the window and of what stands in it.
    void walk(QWidget* top)
    {
        seen.clear();
        collect(QAccessible::queryAccessibleInterface(top), {}, nullptr);
        for (const Seen& one : seen) {
            checkName(one);
            checkValue(one);
        }
        checkTwins();
    }

    std::map<QAccessible::Role, int> roles; ///< how many of each were met

private:
    /// A combo's own name is its value, as the desktop's screen readers expect it; what it is for is told by its label.
    static QString nameOf(Face* face)
    {
        if (face->role() != QAccessible::ComboBox)
            return face->text(QAccessible::Name);
        const auto* combo = static_cast<QComboBox*>(face->object());
        if (!combo->accessibleName().isEmpty())
            return combo->accessibleName();
        for (const auto& relation : face->relations(QAccessible::Label))
            return relation.first->text(QAccessible::Name);
        return {};
    }

    /// Parts that only hold others, or that the toolkit moves itself.
    static bool isFurniture(Face* face)
    {
        switch (face->role()) {
        case QAccessible::Client:
        case QAccessible::LayeredPane:
        case QAccessible::Border:
        case QAccessible::Pane:
        case QAccessible::ScrollBar:
        case QAccessible::Separator:
        case QAccessible::MenuBar: // the window's only one
        case QAccessible::Grip:
        case QAccessible::Splitter:
            return !face->state().focusable || dynamic_cast<QTabWidget*>(face->object());
        default:
            return false;
        }
    }

    struct Seen {
        Face* face;
        QString where;
        Face* group; ///< the nearest frame or window around it
    };

    void collect(Face* face, const QString& where, Face* group)
    {
        if (!face || !face->isValid())
            return;
        QObject* object = face->object();
        const QString here =
            object && !object->objectName().isEmpty() ? where + QLatin1Char('/') + object->objectName() : where;
        seen.push_back({face, here, group});
        const auto role = face->role();
        if (role == QAccessible::Grouping || role == QAccessible::Window || role == QAccessible::Dialog ||
            role == QAccessible::PopupMenu)
            group = face;
        for (int child = 0; child < face->childCount(); ++child)
            collect(face->child(child), here, group);
    }
    /// A row without a text says as little as it shows.
    static bool emptyRow(Face* face)
    {
        if (face->role() != QAccessible::ListItem || !face->parent())
            return false;
        const auto* list = dynamic_cast<QListWidget*>(face->parent()->object());
        const QListWidgetItem* row = list ? list->item(face->parent()->indexOfChild(face)) : nullptr;
        return row && row->text().trimmed().isEmpty();
    }
    static bool nameless(const Seen& one)
    {
        const auto* action = dynamic_cast<QAction*>(one.face->object());
        if ((action && !action->isVisible()) || emptyRow(one.face) ||
            dynamic_cast<QDialogButtonBox*>(one.face->object()))
            return true;
        const auto* label = dynamic_cast<QLabel*>(one.face->object());
        const bool listOfCombo = one.face->object() && one.face->object()->inherits("QComboBoxListView");
        return isFurniture(one.face) || listOfCombo || (label && label->text().isEmpty());
    }
    static void checkName(const Seen& one)
    {
        EXPECT_NE(one.face->role(), QAccessible::NoRole) << utf8(one.where);
        if (!nameless(one)) {
            EXPECT_FALSE(nameOf(one.face).trimmed().isEmpty())
                << "no name: " << utf8(one.where) << " " << qAccessibleRoleString(one.face->role());
        }
    }
    void checkValue(const Seen& one)
    {
        Face* face = one.face;
        ++roles[face->role()];
        if (const auto* fader = dynamic_cast<QSlider*>(face->object())) {
            ASSERT_NE(face->valueInterface(), nullptr) << utf8(one.where);
            EXPECT_EQ(face->role(), QAccessible::Slider);
            EXPECT_EQ(face->valueInterface()->currentValue().toInt(), fader->value());
            EXPECT_EQ(face->valueInterface()->minimumValue().toInt(), fader->minimum());
            EXPECT_EQ(face->valueInterface()->maximumValue().toInt(), fader->maximum());
            EXPECT_FALSE(face->text(QAccessible::Value).isEmpty()) << utf8(one.where);
        }
        if (const auto* combo = dynamic_cast<QComboBox*>(face->object())) {
            EXPECT_EQ(face->text(QAccessible::Value), combo->currentText()) << utf8(one.where);
        }
        if (const auto* field = dynamic_cast<QLineEdit*>(face->object())) {
            EXPECT_EQ(face->role(), QAccessible::EditableText);
            EXPECT_EQ(face->text(QAccessible::Value), field->text()) << utf8(one.where);
            EXPECT_EQ(face->state().readOnly, field->isReadOnly()) << utf8(one.where);
        }
        if (dynamic_cast<QCheckBox*>(face->object()) || dynamic_cast<QRadioButton*>(face->object())) {
            EXPECT_TRUE(face->state().checkable) << utf8(one.where);
        }
    }
    static bool comparable(const Seen& one)
    {
        switch (one.face->role()) {
        case QAccessible::PushButton: // and Button
        case QAccessible::CheckBox:
        case QAccessible::RadioButton:
        case QAccessible::Slider:
        case QAccessible::ComboBox:
        case QAccessible::EditableText:
        case QAccessible::Grouping:
        case QAccessible::PageTab:
        case QAccessible::MenuItem:
        case QAccessible::Window:
            return !one.face->state().invisible;
        default:
            return false;
        }
    }
    void checkTwins()
    {
        std::map<std::tuple<Face*, QAccessible::Role, QString>, QString> known;
        for (const Seen& one : seen) {
            const QObject* object = one.face->object();
            if (!comparable(one) || (object && dynamic_cast<QComboBox*>(object->parent())))
                continue;
            const auto [before, fresh] = known.try_emplace({one.group, one.face->role(), nameOf(one.face)}, one.where);
            EXPECT_TRUE(fresh) << "the same name: " << utf8(one.where) << " and " << utf8(before->second) << ": "
                               << utf8(nameOf(one.face));
        }
    }

    static std::string utf8(const QString& text) { return text.toStdString(); }

    std::vector<Seen> seen;
};
