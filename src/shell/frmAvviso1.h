// A ready notice with three answers. No routine shows it at present.
#pragma once

#include <QDialog>

class QLabel;
class QPushButton;

/// What the notice was answered: 0 CommSI, 1 CommNO, 2 CommAnnulla.
extern int AvvisoAnswer;

class frmAvviso1 final : public QDialog
{
public:
    frmAvviso1(QWidget* owner, const QString& caption, const QString& text);

private:
    QPushButton* addButton(const char* name, int captionId, int answer);

    QLabel* Label1 = nullptr;
    QPushButton* CommSI = nullptr;
    QPushButton* CommNO = nullptr;
    QPushButton* CommAnnulla = nullptr;
};
