// CResourceLock: the mutex of a component that needs one.
#pragma once

#include <pthread.h>

#include <atomic>

// The mutex of a component that needs one. It is error-checking on purpose,
// not recursive: a second lock by the owning thread returns at once with an
// error, which the event firing relies on. Lock and unlock results are ignored.
class CResourceLock {
public:
    CResourceLock() {
        pthread_mutexattr_t attribute;
        pthread_mutexattr_init(&attribute);
        pthread_mutexattr_settype(&attribute, PTHREAD_MUTEX_ERRORCHECK);
        pthread_mutex_init(&m_mutex, &attribute);
        pthread_mutexattr_destroy(&attribute);
    }
    CResourceLock(const CResourceLock&) = delete;
    CResourceLock& operator=(const CResourceLock&) = delete;
    ~CResourceLock() { Delete(); }

    // The calling thread's identity: its thread pointer, unique among live
    // threads (on this platform the value pthread_self() returns, read
    // without a call).
    using ThreadIdentity = const void*;
    static ThreadIdentity CallingThread() noexcept { return __builtin_thread_pointer(); }

    // A second lock by the owning thread, and an unlock by a thread that does
    // not hold the mutex, return at once without effect: the error-checking
    // answers, given before the mutex is reached so that race detectors see
    // only balanced pairs.
    virtual void Lock() { LockAs(CallingThread()); }
    virtual void Unlock() { UnlockAs(CallingThread()); }
    // Lock and Unlock for a caller that knows its own identity
    // (CallingThread()): one lookup serves a pair.
    void LockAs(ThreadIdentity self) {
        const ThreadIdentity owner = m_owner.load(std::memory_order_relaxed);
        if (owner == self || owner == kDeleted) return;
        // The owner test is made above, so a free mutex is taken without the
        // mutex's own repeat of it; a busy one is waited for.
        if (pthread_mutex_trylock(&m_mutex) != 0) pthread_mutex_lock(&m_mutex);
        m_owner.store(self, std::memory_order_relaxed);
    }
    void UnlockAs(ThreadIdentity self) {
        if (m_owner.load(std::memory_order_relaxed) != self) return;
        m_owner.store(nullptr, std::memory_order_relaxed);
        pthread_mutex_unlock(&m_mutex);
    }
    // True while the calling thread holds the mutex.
    bool IsHeldByCallingThread() const noexcept { return m_owner.load(std::memory_order_relaxed) == CallingThread(); }
    // Destroys the mutex; later Lock and Unlock calls do nothing.
    virtual void Delete() {
        if (m_owner.exchange(kDeleted, std::memory_order_relaxed) != kDeleted) pthread_mutex_destroy(&m_mutex);
    }

private:
    pthread_mutex_t m_mutex;
    // Marks a destroyed mutex in the owner slot; no thread has this identity.
    static inline const char kDeletedMark = 0;
    static constexpr ThreadIdentity kDeleted = &kDeletedMark;

    std::atomic<ThreadIdentity> m_owner{nullptr};  // the holding thread; null when free, kDeleted once destroyed
};
static_assert(PTHREAD_MUTEX_ERRORCHECK == 2, "the attribute type value the framework expects");
