// CResourceLock is error-checking: the owner's second lock returns at once.
// A wrong mutex kind would hang, so each case runs in a child process that an
// alarm ends; the outcome checked is the exit status, never a duration.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <thread>

#include "base/resource_lock.h"

namespace {

constexpr unsigned kHangLimitSeconds = 60;

TEST(CResourceLockDeathTest, RelockByTheOwnerReturnsAtOnce) {
    EXPECT_EXIT(
        {
            alarm(kHangLimitSeconds);
            CResourceLock lock;
            lock.Lock();
            lock.Lock();  // refused, not counted
            lock.Unlock();
            std::_Exit(0);
        },
        testing::ExitedWithCode(0), "");
}

TEST(CResourceLockDeathTest, OneUnlockFreesItAfterARelock) {
    EXPECT_EXIT(
        {
            alarm(kHangLimitSeconds);
            CResourceLock lock;
            lock.Lock();
            lock.Lock();
            lock.Unlock();  // a recursive mutex would still be held here
            std::thread other([&lock] {
                lock.Lock();
                lock.Unlock();
            });
            other.join();
            std::_Exit(0);
        },
        testing::ExitedWithCode(0), "");
}

TEST(CResourceLock, LockAndUnlockAfterDeleteDoNothing) {
    CResourceLock lock;
    lock.Lock();
    EXPECT_TRUE(lock.IsHeldByCallingThread());
    lock.Unlock();
    EXPECT_FALSE(lock.IsHeldByCallingThread());
    lock.Delete();
    lock.Lock();
    EXPECT_FALSE(lock.IsHeldByCallingThread());
    lock.Unlock();
    lock.Delete();
    EXPECT_FALSE(lock.IsHeldByCallingThread());
}

TEST(CResourceLock, UnlockByAThreadThatDoesNotHoldItDoesNothing) {
    CResourceLock lock;
    lock.Lock();
    std::thread other([&] { lock.Unlock(); });
    other.join();
    EXPECT_TRUE(lock.IsHeldByCallingThread());
    lock.Unlock();
    EXPECT_FALSE(lock.IsHeldByCallingThread());
}

}  // namespace
