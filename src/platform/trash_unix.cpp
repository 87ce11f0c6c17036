// SPDX-License-Identifier: GPL-3.0-or-later
// A file in the trash is two: the file itself in "files", a note about where it came from in "info". The note comes
// first. Qt's own way to the trash tries again without end where no note can be written.
#include "platform/entries.h"
#include "platform/file_names.h"
#include "platform/handle_unix.h"
#include "platform/scratch_file.h"
#include "platform/trash.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QSet>
#include <QStandardPaths>

#include <cerrno>
#include <fcntl.h>
#include <optional>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{
constexpr int mostNames = 10'000; // Of files that had the same name.
const QByteArray noteEnd = ".trashinfo";
const QByteArray ownMark = "X-KiV-Mp3=1\n"; // Other programs pass over lines they do not know.

struct Trash {
    QByteArray folder; // Without a slash at the end.
    QByteArray top;    // Notes name files from here; "/" names them in full.
};

std::optional<struct stat> entryStatus(const QByteArray &path)
{
    struct stat status = {};
    return ::lstat(path.constData(), &status) == 0 ? std::optional(status) : std::nullopt;
}

// It must be the user's own: others could read there what is thrown away.
bool haveTrashFolder(const QByteArray &path)
{
    return haveOwnFolder(path, Others::MayChange);
}

// The highest folder of the file system that folder lies on.
QByteArray topOf(QByteArray folder, dev_t device)
{
    while (folder != "/") {
        const qsizetype slash = folder.lastIndexOf('/');
        const QByteArray above = slash > 0 ? folder.first(slash) : QByteArray("/");
        const auto status = entryStatus(above);
        if (!status || status->st_dev != device)
            break;
        folder = above;
    }
    return folder;
}

// The user may have put a link in its place.
QByteArray homeTrash(const QByteArray &path)
{
    const QByteArray real = realPath(path);
    return real.isEmpty() ? path : real;
}

// The trash for files of a folder, made where it is missing.
std::optional<Trash> trashFor(const QByteArray &folder)
{
    const auto status = entryStatus(folder);
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    if (!status || !QDir().mkpath(data))
        return std::nullopt;
    const auto home = entryStatus(QFile::encodeName(QFileInfo(data).canonicalFilePath()));
    if (home && home->st_dev == status->st_dev)
        return Trash{homeTrash(QFile::encodeName(data) + "/Trash"), "/"};
    const QByteArray top = topOf(folder, status->st_dev);
    const QByteArray start = top == "/" ? top : top + '/';
    const QByteArray user = QByteArray::number(::geteuid());
    const auto shared = entryStatus(start + ".Trash");
    const bool isSafe = shared && S_ISDIR(shared->st_mode) && (shared->st_mode & S_ISVTX) != 0;
    if (isSafe && haveTrashFolder(start + ".Trash/" + user))
        return Trash{start + ".Trash/" + user, top};
    return Trash{start + ".Trash-" + user, top};
}

bool isReady(const Trash &trash)
{
    return haveTrashFolder(trash.folder) && haveTrashFolder(trash.folder + "/files") &&
           haveTrashFolder(trash.folder + "/info");
}

// "Song.mp3", "Song.2.mp3" ...; cut where the note's name would be too long, never within a character.
QByteArray nameInTrash(const QByteArray &name, int number)
{
    const qsizetype dot = name.lastIndexOf('.');
    const QByteArray ending = dot > 0 && name.size() - dot <= 8 ? name.sliced(dot) : QByteArray();
    const QByteArray tail = (number > 1 ? '.' + QByteArray::number(number) : QByteArray()) + ending;
    QByteArray stem = name.chopped(ending.size());
    if (stem.size() + tail.size() + noteEnd.size() > longestHostName) {
        qsizetype length = longestHostName - noteEnd.size() - tail.size();
        while (length > 0 && (stem[length] & 0xC0) == 0x80)
            --length;
        stem.truncate(length);
    }
    return stem + tail;
}

QByteArray noteText(const QByteArray &path, const QByteArray &top)
{
    const QByteArray named = top == "/" ? path : path.sliced(top.size() + 1);
    return "[Trash Info]\nPath=" + named.toPercentEncoding("/") +
           "\nDeletionDate=" + QDateTime::currentDateTime().toString(u"yyyy-MM-ddThh:mm:ss"_s).toLatin1() + '\n' +
           ownMark;
}

// The note, of a place it is brought back to, goes again when the file does not come.
bool moveInto(const Trash &trash, const QByteArray &path, const QByteArray &placeBefore)
{
    auto note = ScratchFile::make(trash.folder + "/info/", 0600);
    if (!note || !writeAll(note->handle(), noteText(placeBefore, trash.top)) || !note->finish())
        return false;
    const QByteArray name = placeBefore.sliced(placeBefore.lastIndexOf('/') + 1);
    for (int number = 1; number <= mostNames; ++number) {
        const QByteArray newName = nameInTrash(name, number);
        const QByteArray place = trash.folder + "/files/" + newName;
        if (hostEntry(place) == Presence::There)
            continue;
        const RenameResult noted = note->commit(trash.folder + "/info/" + newName + noteEnd, Existing::Keep);
        if (noted == RenameResult::OtherExists)
            continue;
        if (noted == RenameResult::Failed)
            return false;
        if (renameEntry(path, place, Existing::Keep) == RenameResult::Done)
            return true;
        const int reason = errno;
        note->undo();
        errno = reason;
        return false;
    }
    return false;
}

void removeNoteIfLeft(const QByteArray &notePath)
{
    const Handle note(::open(notePath.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW));
    if (!note.isOpen() || ::flock(note.get(), LOCK_EX | LOCK_NB) != 0)
        return;
    char text[4096 * 4] = {}; // A path, each byte of it as three letters, and some lines.
    const ssize_t length = ::read(note.get(), text, sizeof text);
    if (length > 0 && QByteArrayView(text, length).endsWith(ownMark))
        removeEntry(notePath);
}

void removeLeftovers(const Trash &trash)
{
    const QList<QByteArray> files = hostEntries(trash.folder + "/files").value_or(QList<QByteArray>());
    const auto notes = hostEntries(trash.folder + "/info");
    const QSet<QByteArray> there(files.begin(), files.end());
    for (const QByteArray &note : notes.value_or(QList<QByteArray>())) {
        if (note.endsWith(noteEnd) && !there.contains(note.chopped(noteEnd.size())))
            removeNoteIfLeft(trash.folder + "/info/" + note);
    }
}
} // namespace

bool moveToTrash(const QByteArray &path, const QByteArray &nameBefore)
{
    const qsizetype slash = path.lastIndexOf('/');
    const QByteArray folder = realPath(slash > 0 ? path.first(slash) : QByteArray("/"));
    const auto trash = folder.isEmpty() ? std::nullopt : trashFor(folder);
    if (!trash || !isReady(*trash))
        return false;
    removeLeftovers(*trash);
    const QByteArray start = folder == "/" ? folder : folder + '/';
    const QByteArray name = path.sliced(slash + 1);
    return moveInto(*trash, start + name, start + (nameBefore.isEmpty() ? name : nameBefore));
}

void removeTrashLeftovers(const QByteArray &folder)
{
    const auto trash = trashFor(realPath(folder));
    if (!trash)
        return;
    removeScratchFiles(trash->folder + "/info/");
    removeLeftovers(*trash);
}
