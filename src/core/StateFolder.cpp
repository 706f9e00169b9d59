// Made step by step with narrow permissions, whatever the umask is.
#include "core/StateFolder.h"

#include "core/FileHandle.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

constexpr mode_t OwnerOnly = 0700;

/// Takes the permissions of all others away. A folder of someone else's is that one's to close.
void closeToOthers(const std::string& path)
{
    struct stat status {
    };
    FileHandle folder;
    folder.take(openFile(path, O_RDONLY | O_DIRECTORY));
    if (!folder.isOpen() || fstat(folder.descriptor(), &status) != 0 || status.st_uid != geteuid())
        return;
    constexpr mode_t Others = S_IRWXG | S_IRWXO;
    if ((status.st_mode & Others) != 0 && fchmod(folder.descriptor(), OwnerOnly) != 0) {
        // A disk without permission bits has none to take away.
    }
}

} // namespace

void makeStateFolder(const std::string& path)
{
    if (!canNameAFile(path))
        return;
    for (std::size_t slash = path.find('/', 1); slash != std::string::npos; slash = path.find('/', slash + 1))
        mkdir(path.substr(0, slash).c_str(), OwnerOnly);
    mkdir(path.c_str(), OwnerOnly);
    closeToOthers(path);
}
