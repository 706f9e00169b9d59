// The notice window: one line about a file, and a button that closes it.
#pragma once

#include <QDialog>

class QLabel;
class QPushButton;

class frmAvviso2 final : public QDialog
{
public:
    /// `owner` is the window that it stands over the middle of; null while there is none.
    frmAvviso2(QWidget* owner, const QString& caption, const QString& text);

protected:
    void showEvent(QShowEvent* event) override;

private:
    QLabel* Label1 = nullptr;
    QPushButton* CommClose = nullptr;
};
