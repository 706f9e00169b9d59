// The list of rows that most windows are built around, with the clicks that the rules mean.
#pragma once

#include <QListWidget>
#include <QPointer>
#include <functional>
#include <string>

class RowList final : public QListWidget
{
public:
    RowList(QWidget* parent, const QString& name);

    /// A click: a left press or a key on a row, also on the row already current, told after the selection has changed.
    /// A right press is none.
    void onClick(std::function<void()> handler) { click_ = std::move(handler); }
    /// A second press on the same row within the system's time: told after the second click.
    void onDoubleClick(std::function<void()> handler) { doubleClick_ = std::move(handler); }
    void onDelete(std::function<void()> handler) { delete_ = std::move(handler); }

    /// Chooses the row `rows` below (above, where negative), as a press on it would; without a chosen row the one that
    /// the keys stand on. At the first and the last row nothing happens.
    void step(int rows);

    /// The row's number from 0, -1 without one.
    int ListIndex() const { return currentRow(); }
    /// Makes a row the current and only selected one; no click follows.
    void select(int row);
    /// The row's text as the instrument's bytes.
    std::string rowText(int row) const;
    /// Sets all rows at once from the instrument's bytes (Latin-1). No click follows; the current row is lost.
    void setRows(const QStringList& rows);

protected:
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void tellClick();
    bool chooseFirst();

    std::function<void()> click_;
    std::function<void()> doubleClick_;
    std::function<void()> delete_;
    int pressedRow_ = -1;
    bool pressing_ = false;
};
