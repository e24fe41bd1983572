// How a DblBuffer change and the notification of its listeners share the
// object's one mutex. The sequences are fixed: hosts and listeners that call
// back into the vector rely on them.
//
// The mutex is error-checking (CResourceLock): a lock by the thread that
// already holds it returns at once, and an unlock by a thread that does not
// hold it does nothing. The listener walk (IEventSourceImpl::NotifyListeners)
// takes each listener under Lock and Unlock and calls it after the Unlock.
#pragma once

#include "base/resource_lock.h"
#include "com_types.h"

// put_Element's sequence: the change and the firing both run under one Lock.
// The walk's first per-listener Lock then returns at once and its Unlock
// releases the object's mutex, so every listener runs unlocked and may call
// back into the vector; the closing Unlock finds the mutex already released
// (it is the one that releases it when there is no listener). Listeners are
// told whatever the change returned.
template <class Change, class Notify>
HRESULT ChangeAndNotifyUnderLock(CResourceLock& lock, Change&& change, Notify&& notify) {
    const CResourceLock::ThreadIdentity self = CResourceLock::CallingThread();
    lock.LockAs(self);
    const HRESULT hr = change();
    notify();
    lock.UnlockAs(self);
    return hr;
}

// put_Size's sequence: the change runs under the lock, and listeners are
// told after the unlock, only when the change succeeded.
template <class Change, class Notify>
HRESULT ChangeThenNotify(CResourceLock& lock, Change&& change, Notify&& notify) {
    lock.Lock();
    const HRESULT hr = change();
    lock.Unlock();
    if (SUCCEEDED(hr)) notify();
    return hr;
}
