// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/pictures.h"

#include "controls/skin.h"
#include "skins/places.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QLoggingCategory>

#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{
struct PictureFile {
    const char *name;
    const char *format;           // And ending.
    QSize size;                   // In logical pixels.
    const char *atRest = nullptr; // Of a key's other states: what stands in where the skin has only that.
};

constexpr QSize roundKey = places::Mp3Frm::bStop.size();
constexpr QSize playKey = places::Mp3Frm::bPlay.size();
constexpr QSize reel = places::ToolBar::Picture2.size();

constexpr std::array<PictureFile, static_cast<std::size_t>(Picture::Count)> files = {{
    {"Splash", "jpg", places::Splash::window},
    {"Mp3Frm", "jpg", places::Mp3Frm::window},
    {"Playlist", "jpg", places::Playlist::window},
    {"SongSearch", "jpg", places::SongSearch::window},
    {"TagEdit", "jpg", places::TagEdit::window},
    {"FormatMp3", "jpg", places::FormatMp3::window},
    {"ToolBar", "jpg", places::ToolBar::window},
    {"frmOptions", "jpg", places::frmOptions::window},
    {"About", "jpg", places::About::window},
    {"frmNoTag", "jpg", places::TagEdit::frmNoTag.size()},
    {"bPlay", "png", playKey},
    {"bPlay-hover", "png", playKey, "bPlay"},
    {"bPlay-pressed", "png", playKey, "bPlay"},
    {"bPause", "png", roundKey},
    {"bPause-hover", "png", roundKey, "bPause"},
    {"bPause-pressed", "png", roundKey, "bPause"},
    {"bPause-on", "png", roundKey, "bPause"},
    {"bStop", "png", roundKey},
    {"bStop-hover", "png", roundKey, "bStop"},
    {"bStop-pressed", "png", roundKey, "bStop"},
    {"bPrev", "png", roundKey},
    {"bPrev-hover", "png", roundKey, "bPrev"},
    {"bPrev-pressed", "png", roundKey, "bPrev"},
    {"bNext", "png", roundKey},
    {"bNext-hover", "png", roundKey, "bNext"},
    {"bNext-pressed", "png", roundKey, "bNext"},
    {"Picture3-0", "png", reel},
    {"Picture3-1", "png", reel},
    {"Picture3-2", "png", reel},
    {"icon-16", "png", {16, 16}},
    {"icon-22", "png", {22, 22}},
    {"icon-32", "png", {32, 32}},
    {"icon-48", "png", {48, 48}},
}};
static_assert(files.back().name != nullptr, "every picture needs a file");

// More bytes than a picture of that size needs, with what editors add to it, would only be unpacked for nothing.
qint64 longestFileOf(QSize pixels)
{
    constexpr qint64 addedByEditors = 1 << 16;
    constexpr qint64 bytesAPixel = 4;
    return addedByEditors + bytesAPixel * pixels.width() * pixels.height();
}

const PictureFile &fileOf(Picture which)
{
    return files.at(static_cast<std::size_t>(which));
}

// A picture and how many of its pixels are a logical one; null where there is none.
struct Drawing {
    QImage image;
    int density = 1;
};

// Where the worn skin has a picture: the folder that it is shown from, or is looked for from, and its file there.
struct Source {
    qsizetype folder = 0;
    QString file;
};

Source &sourceOf(Picture which)
{
    static std::array<Source, files.size()> sources;
    static int skin = 0;
    if (std::exchange(skin, skinNumber()) != skinNumber())
        sources = {};
    return sources.at(static_cast<std::size_t>(which));
}

// One that the skin has from those it is based on is told with their folder's name.
void complainOf(const Source &source, const QString &fault)
{
    const Skin &skin = currentSkin();
    const QString owner =
        source.folder == 0 ? QString() : QFileInfo(skin.folders.value(source.folder)).fileName() + u'/';
    complain(skin.title, u"%1%2 %3; it is not shown"_s.arg(owner, source.file, fault));
}

QString nameOf(const char *name, const PictureFile &file, int density)
{
    const QString sharper = density == 2 ? u"@2x"_s : QString();
    return QLatin1StringView(name) + sharper + u'.' + QLatin1StringView(file.format);
}

QString inPixels(QSize size)
{
    return u"%1 x %2"_s.arg(size.width()).arg(size.height());
}

// The decoder fills what a cut JPEG lacks with grey and calls it a picture. A whole one has an end mark. Of what begins
// unlike a PNG the decoder itself would speak to the terminal.
bool isWhole(const QByteArray &bytes, const PictureFile &file)
{
    const bool isJpeg = QByteArrayView(file.format) == QByteArrayView("jpg");
    return isJpeg ? bytes.endsWith("\xFF\xD9") : bytes.startsWith("\x89PNG\r\n");
}

// What the bytes show. Its size is known before anything is decoded: no picture is too large for the memory.
QImage decode(QByteArray bytes, const PictureFile &file, QSize wanted, QString &fault)
{
    static const bool isQuiet = (QLoggingCategory::setFilterRules(u"qt.gui.imageio*=false"_s), true);
    Q_UNUSED(isQuiet); // What is wrong is told here, in one line.
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer, file.format);
    reader.setAutoDetectImageFormat(false);
    const QSize size = isWhole(bytes, file) ? reader.size() : QSize();
    if (size.isValid() && size != wanted) {
        fault = u"is %1 pixels instead of %2"_s.arg(inPixels(size), inPixels(wanted));
        return {};
    }
    QImage image;
    if (!size.isValid() || !reader.read(&image))
        fault = u"is damaged"_s;
    return fault.isEmpty() ? image : QImage();
}

// A file as the skin may have it; a null drawing where it has none, or one that is complained of.
Drawing load(const Source &source, const PictureFile &file, int density)
{
    const QFileInfo entry(currentSkin().folders.value(source.folder) + u'/' + source.file);
    if (!entry.exists())
        return {};
    Drawing drawing{{}, density};
    QString fault;
    QFile opened(entry.filePath());
    const QSize size = file.size * density;
    const qint64 longest = longestFileOf(size);
    if (!entry.isFile() || !opened.open(QIODevice::ReadOnly))
        fault = u"is no file that can be read"_s;
    else if (entry.size() > longest)
        fault = u"has %1 bytes, which are too many for %2 pixels"_s.arg(entry.size()).arg(inPixels(size));
    else
        drawing.image = decode(opened.read(longest), file, size, fault);
    if (!fault.isEmpty())
        complainOf(source, fault);
    return drawing;
}

struct Form {
    QString name; // Of the file.
    int density;
};

// What a folder may have of a picture: any density, the wanted one before the other, and at least the key at rest.
QList<Form> formsOf(const PictureFile &file, int density)
{
    const int other = density == 1 ? 2 : 1;
    QList<Form> forms;
    for (const char *name : {file.name, file.atRest}) {
        if (name)
            forms += {{nameOf(name, file, density), density}, {nameOf(name, file, other), other}};
    }
    return forms;
}

// That of the first folder that has any form of it.
Drawing drawingOf(Picture which, int density)
{
    const PictureFile &file = fileOf(which);
    const QList<Form> forms = formsOf(file, density);
    Source &source = sourceOf(which);
    for (; source.folder < currentSkin().folders.size(); ++source.folder) {
        for (const Form &form : forms) {
            source.file = form.name;
            const Drawing drawing = load(source, file, form.density);
            if (!drawing.image.isNull())
                return drawing;
        }
    }
    return {};
}

QImage scaled(const Drawing &drawing, qreal density)
{
    if (drawing.image.isNull() || density == drawing.density)
        return drawing.image;
    const QSizeF size = QSizeF(drawing.image.size()) * density / drawing.density;
    return drawing.image.scaled(size.toSize(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}
} // namespace

QStringList pictureFileNames()
{
    QStringList names;
    for (const PictureFile &file : files)
        names += {nameOf(file.name, file, 1), nameOf(file.name, file, 2)};
    return names;
}

// Scaled once here, and well, rather than at each painting.
QPixmap picture(Picture which, qreal devicePixelRatio)
{
    QImage image = scaled(drawingOf(which, devicePixelRatio > 1 ? 2 : 1), devicePixelRatio);
    image.setDevicePixelRatio(devicePixelRatio);
    return QPixmap::fromImage(image);
}

QImage pictureImage(Picture which)
{
    return scaled(drawingOf(which, 1), 1);
}

void checkPictures()
{
    for (std::size_t which = 0; which < files.size(); ++which) {
        for (const int density : {1, 2})
            drawingOf(static_cast<Picture>(which), density);
    }
}

void refusePicture(Picture which, const QString &why)
{
    Source &refused = sourceOf(which);
    complainOf(refused, why);
    ++refused.folder;
}

bool KeptPicture::keep(qreal devicePixelRatio)
{
    const bool isDue =
        m_skin != skinNumber() || m_density == 0 || (m_density != devicePixelRatio && !m_pixmap.isNull());
    if (isDue)
        make(devicePixelRatio);
    return isDue;
}

void KeptPicture::make(qreal devicePixelRatio)
{
    m_pixmap = m_which == Picture::Count ? QPixmap() : picture(m_which, devicePixelRatio);
    m_density = devicePixelRatio;
    m_skin = skinNumber();
}
