// Writes the program's picture into the folders of an icon theme: PNG files of the usual sizes and one that scales.
// All come from the shapes that the program itself draws in its title bars.
#include "shell/ProgramIconShapes.h"
#include "shell/QtProgramIcon.h"

#include <QDir>
#include <QFile>
#include <QTextStream>
#include <cstdio>

namespace
{

const QString Name = QStringLiteral("io.github.tarvolyne.tarvolyne");

QString colourText(std::uint32_t colour) { return QStringLiteral("#%1").arg(colour, 6, 16, QLatin1Char('0')); }

/// `folder`/`size`/apps, made.
QString appsFolder(const QString& folder, const QString& size)
{
    const QString path = folder + QLatin1Char('/') + size + QStringLiteral("/apps");
    QDir().mkpath(path);
    return path;
}

QString scalable(const IconDrawing& drawing)
{
    QString text;
    QTextStream out(&text);
    out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << drawing.grid << "\" height=\"" << drawing.grid
        << "\" viewBox=\"0 0 " << drawing.grid << ' ' << drawing.grid << "\">\n  <title>Tarvolyne</title>\n";
    int number = 0;
    for (const IconShape& shape : drawing.shapes) {
        const QString fill = QStringLiteral("f%1").arg(number++);
        out << "  <linearGradient id=\"" << fill
            << "\" x1=\"0\" y1=\"0\" x2=\"0\" y2=\"1\"><stop offset=\"0\" stop-color=\"" << colourText(shape.colour)
            << "\"/><stop offset=\"1\" stop-color=\"" << colourText(shape.foot) << "\"/></linearGradient>\n"
            << "  <rect x=\"" << shape.left << "\" y=\"" << shape.top << "\" width=\"" << shape.width << "\" height=\""
            << shape.height << "\" rx=\"" << shape.radius << "\" fill=\"url(#" << fill << ")\"/>\n";
    }
    out << "</svg>\n";
    return text;
}

bool writeScalable(const QString& folder)
{
    QFile file(appsFolder(folder, QStringLiteral("scalable")) + QLatin1Char('/') + Name + QStringLiteral(".svg"));
    return file.open(QIODevice::WriteOnly) && file.write(scalable(scalableIcon()).toUtf8()) > 0;
}

bool writePicture(const QString& folder, int side)
{
    const QString size = QStringLiteral("%1x%1").arg(side);
    return programPicture(side).save(appsFolder(folder, size) + QLatin1Char('/') + Name + QStringLiteral(".png"));
}

} // namespace

int main(int count, char** arguments)
{
    if (count != 2) {
        std::fputs("usage: make_icons FOLDER\n", stderr);
        return 2;
    }
    const QString folder = QFile::decodeName(arguments[1]);
    bool good = writeScalable(folder);
    for (const int side : {16, 24, 32, 48, 64, 128, 256})
        good = writePicture(folder, side) && good;
    return good ? 0 : 1;
}
