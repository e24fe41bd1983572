// The two sequences in which a DblBuffer change and its notification share
// the object's error-checking mutex.
#include <gtest/gtest.h>
#include <pthread.h>

#include <vector>

#include "base/resource_lock.h"
#include "vector/lock_hand_over.h"

namespace {

// What the listener walk does for each listener: take it under the lock,
// call it after the unlock. Records whether the mutex was held at each step.
struct ListenerWalk {
    CResourceLock& lock;
    int listeners;
    std::vector<bool> heldDuringCall;

    void operator()() {
        for (int i = 0; i < listeners; ++i) {
            lock.Lock();
            lock.Unlock();
            heldDuringCall.push_back(lock.IsHeldByCallingThread());
        }
    }
};

TEST(ChangeAndNotifyUnderLock, ChangeRunsUnderTheLockAndListenersRunUnlocked) {
    CResourceLock lock;
    bool heldDuringChange = false;
    ListenerWalk walk{lock, 2, {}};
    const HRESULT hr = ChangeAndNotifyUnderLock(
        lock,
        [&] {
            heldDuringChange = lock.IsHeldByCallingThread();
            return S_OK;
        },
        walk);
    EXPECT_EQ(hr, S_OK);
    EXPECT_TRUE(heldDuringChange);
    EXPECT_EQ(walk.heldDuringCall, (std::vector<bool>{false, false}));
    EXPECT_FALSE(lock.IsHeldByCallingThread());
}

TEST(ChangeAndNotifyUnderLock, WithoutListenersTheClosingUnlockReleasesTheMutex) {
    CResourceLock lock;
    bool heldDuringNotify = false;
    ChangeAndNotifyUnderLock(
        lock, [] { return S_OK; }, [&] { heldDuringNotify = lock.IsHeldByCallingThread(); });
    EXPECT_TRUE(heldDuringNotify);
    EXPECT_FALSE(lock.IsHeldByCallingThread());
}

TEST(ChangeAndNotifyUnderLock, ListenersAreToldOfAFailedChangeAndItsCodeIsReturned) {
    CResourceLock lock;
    int told = 0;
    const HRESULT hr = ChangeAndNotifyUnderLock(
        lock, [] { return E_FAIL; }, [&] { ++told; });
    EXPECT_EQ(hr, E_FAIL);
    EXPECT_EQ(told, 1);
}

TEST(ChangeThenNotify, ListenersAreToldAfterTheUnlock) {
    CResourceLock lock;
    bool heldDuringChange = false;
    bool heldDuringNotify = true;
    const HRESULT hr = ChangeThenNotify(
        lock,
        [&] {
            heldDuringChange = lock.IsHeldByCallingThread();
            return S_OK;
        },
        [&] { heldDuringNotify = lock.IsHeldByCallingThread(); });
    EXPECT_EQ(hr, S_OK);
    EXPECT_TRUE(heldDuringChange);
    EXPECT_FALSE(heldDuringNotify);
}

TEST(ChangeThenNotify, AFailedChangeIsNotAnnounced) {
    CResourceLock lock;
    int told = 0;
    const HRESULT hr = ChangeThenNotify(
        lock, [] { return E_OUTOFMEMORY; }, [&] { ++told; });
    EXPECT_EQ(hr, E_OUTOFMEMORY);
    EXPECT_EQ(told, 0);
    EXPECT_FALSE(lock.IsHeldByCallingThread());
}

}  // namespace
