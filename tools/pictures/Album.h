// Where the pictures go: one PNG file a look, checked as it is taken.
#pragma once

#include <QString>
#include <QStringList>

class QWidget;

class Album
{
public:
    /// Below `folder`, which is made.
    explicit Album(const QString& folder);

    /// Takes a window as it stands. A name taken before, a picture that cannot be written, and one of a single colour
    /// are faults.
    void take(QWidget* window, const QString& name);
    /// The window in its own size, on each page of its first tab control, and once more drawn larger.
    void takeAll(QWidget* window, const QString& name);
    /// A fault of another kind.
    void miss(const QString& what) { faults_ << what; }

    int count() const { return count_; }
    const QStringList& faults() const { return faults_; }

private:
    void takePages(QWidget* window, const QString& name);

    QString folder_;
    QStringList names_;
    QStringList faults_;
    int count_ = 0;
};

/// Runs the event loop until nothing more is due: no timer of a staged action, no paint.
void settle();
