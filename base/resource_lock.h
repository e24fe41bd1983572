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

    // A second lock by the owning thread, and an unlock by a thread that does
    // not hold the mutex, return at once without effect: the error-checking
    // answers, given before the mutex is reached so that race detectors see
    // only balanced pairs.
    virtual void Lock() { LockAs(pthread_self()); }
    virtual void Unlock() { UnlockAs(pthread_self()); }
    // Lock and Unlock for a caller that knows its own thread (`self` is
    // pthread_self() of the calling thread): one lookup serves a pair.
    void LockAs(pthread_t self) {
        if (m_deleted) return;
        if (m_owner.load(std::memory_order_relaxed) == self) return;
        pthread_mutex_lock(&m_mutex);
        m_owner.store(self, std::memory_order_relaxed);
    }
    void UnlockAs(pthread_t self) {
        if (m_deleted) return;
        if (m_owner.load(std::memory_order_relaxed) != self) return;
        m_owner.store(pthread_t{}, std::memory_order_relaxed);
        pthread_mutex_unlock(&m_mutex);
    }
    // True while `thread` holds the mutex.
    bool IsHeldBy(pthread_t thread) const noexcept {
        return !m_deleted && m_owner.load(std::memory_order_relaxed) == thread;
    }
    // Destroys the mutex; later Lock and Unlock calls do nothing.
    virtual void Delete() {
        if (!m_deleted) {
            m_deleted = true;
            pthread_mutex_destroy(&m_mutex);
        }
    }

private:
    pthread_mutex_t m_mutex;
    std::atomic<pthread_t> m_owner{};  // the holding thread; zero when free
    bool m_deleted = false;
};
static_assert(PTHREAD_MUTEX_ERRORCHECK == 2, "the attribute type value the framework expects");
