// The lock by which a second start of the program finds the first.
#include "core/InstanceLock.h"

#include "support/OtherUser.h"
#include "support/TemporaryFolder.h"

#include <csignal>
#include <gtest/gtest.h>

namespace
{

bool heldByAnother(const TemporaryFolder& folder)
{
    return asOrdinaryUser([&] {
               InstanceLock lock;
               return lock.acquire(folder.path()) ? 1 : 0;
           }) == 1;
}

/// A file that the child processes may lock too.
void share(const TemporaryFolder& folder)
{
    openToAll(folder.path());
    if (folder.has("TvlLock"))
        openToAll(folder.file("TvlLock"));
}

} // namespace

TEST(InstanceLock, isFreeForTheFirstAndHeldForTheSecondProcess)
{
    const TemporaryFolder folder;
    InstanceLock lock;
    EXPECT_FALSE(lock.acquire(folder.path()));
    EXPECT_FALSE(lock.heldElsewhere());
    share(folder);
    EXPECT_TRUE(heldByAnother(folder));
}

TEST(InstanceLock, isFreeAgainAfterReleaseAndKeepsItsFile)
{
    const TemporaryFolder folder;
    {
        InstanceLock lock;
        EXPECT_FALSE(lock.acquire(folder.path()));
    }
    share(folder);
    EXPECT_TRUE(folder.has("TvlLock"));
    EXPECT_FALSE(heldByAnother(folder));
}

TEST(InstanceLock, knowsThatAnotherProcessHoldsItUntilThatDies)
{
    const TemporaryFolder folder;
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t child = fork();
    if (child == 0) {
        InstanceLock held;
        const char answer = held.acquire(folder.path()) ? 'h' : 'f';
        if (write(ready[1], &answer, 1) != 1)
            _exit(1);
        for (;;)
            pause();
    }
    char answer = 0;
    ASSERT_EQ(read(ready[0], &answer, 1), 1);
    close(ready[0]);
    close(ready[1]);
    EXPECT_EQ(answer, 'f');

    InstanceLock lock;
    EXPECT_TRUE(lock.acquire(folder.path()));
    EXPECT_TRUE(lock.heldElsewhere());
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    EXPECT_FALSE(lock.acquire(folder.path())) << "a crash leaves nothing to clean up";
    EXPECT_FALSE(lock.heldElsewhere());
}

TEST(InstanceLock, isNotHandedOnToAProgramThatIsStarted)
{
    const TemporaryFolder folder;
    InstanceLock lock;
    ASSERT_FALSE(lock.acquire(folder.path()));
    int in[2];
    ASSERT_EQ(pipe(in), 0);
    const pid_t child = fork();
    if (child == 0) {
        dup2(in[0], STDIN_FILENO);
        close(in[0]);
        close(in[1]);
        execlp("cat", "cat", static_cast<char*>(nullptr));
        _exit(127);
    }
    close(in[0]);
    // Once the started program waits for its input, its descriptors are those that the start left it.
    lock.release();
    InstanceLock again;
    bool held = true;
    for (int tries = 0; tries < 200 && held; ++tries) {
        held = again.acquire(folder.path());
        if (held)
            usleep(10000);
    }
    EXPECT_FALSE(held);
    close(in[1]);
    waitpid(child, nullptr, 0);
}

TEST(InstanceLock, countsAFolderWhereNoLockFileCanBeMadeAsFree)
{
    const TemporaryFolder folder;
    chmod(folder.path().c_str(), 0555);
    EXPECT_FALSE(heldByAnother(folder));
    chmod(folder.path().c_str(), 0755);
    EXPECT_FALSE(folder.has("TvlLock"));
}

TEST(InstanceLock, countsAFolderWithoutALockFileAsFree)
{
    const TemporaryFolder folder;
    InstanceLock lock;
    EXPECT_FALSE(lock.acquire(folder.path() + "/absent"));
    EXPECT_FALSE(lock.heldElsewhere());
}
