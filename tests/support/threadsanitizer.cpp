// SPDX-License-Identifier: GPL-3.0-or-later
// Built for the thread sanitizer alone: stands before functions of Qt that order what threads do, and reports that.
#include "support/threadsanitizer.h"

#include <dlfcn.h>

extern "C" {
void __tsan_acquire(void *address);
void __tsan_release(void *address);
}

namespace
{
// Qt posts the events of queued calls itself, out of our sight. So one place stands for all of them: whoever emits or
// posts releases it, every delivery acquires it; and another one for the way back to a caller that was blocked.
char posted;
char delivered;

template <class Function>
Function next(const char *symbol)
{
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, symbol));
}
} // namespace

#define VELT_UNOBSERVED __attribute__((no_sanitize("thread"), visibility("default"), used))
#define VELT_REAL(symbol, ...) static const auto real = next<__VA_ARGS__>(#symbol)
#define VELT_LOCKS(symbol)                                                                                   \
    VELT_UNOBSERVED void symbol(void *mutex)                                                                 \
    {                                                                                                        \
        VELT_REAL(symbol, void (*)(void *));                                                                 \
        real(mutex);                                                                                         \
        __tsan_acquire(mutex);                                                                               \
    }
#define VELT_UNLOCKS(symbol)                                                                                 \
    VELT_UNOBSERVED void symbol(void *mutex)                                                                 \
    {                                                                                                        \
        VELT_REAL(symbol, void (*)(void *));                                                                 \
        __tsan_release(mutex);                                                                               \
        real(mutex);                                                                                         \
    }

VELT_UNOBSERVED void noteDelivery()
{
    __tsan_acquire(&posted);
}

VELT_UNOBSERVED void noteDelivered()
{
    __tsan_release(&delivered);
}

extern "C" {
// QMutex::lock, unlock; QBasicMutex::lockInternal, unlockInternal
VELT_LOCKS(_ZN6QMutex4lockEv)
VELT_UNLOCKS(_ZN6QMutex6unlockEv)
VELT_LOCKS(_ZN11QBasicMutex12lockInternalEv)
VELT_UNLOCKS(_ZN11QBasicMutex14unlockInternalEv)

// QCoreApplication::postEvent(QObject *, QEvent *, int)
VELT_UNOBSERVED void
_ZN16QCoreApplication9postEventEP7QObjectP6QEventi(void *receiver, void *event, int priority)
{
    VELT_REAL(_ZN16QCoreApplication9postEventEP7QObjectP6QEventi, void (*)(void *, void *, int));
    __tsan_release(&posted);
    real(receiver, event, priority);
}

// QMetaObject::activate(QObject *, const QMetaObject *, int, void **): every emission
VELT_UNOBSERVED void
_ZN11QMetaObject8activateEP7QObjectPKS_iPPv(void *sender, const void *meta, int signal, void **arguments)
{
    VELT_REAL(_ZN11QMetaObject8activateEP7QObjectPKS_iPPv, void (*)(void *, const void *, int, void **));
    __tsan_release(&posted);
    real(sender, meta, signal, arguments);
    __tsan_acquire(&delivered);
}

// QMetaObject::invokeMethodImpl(QObject *, QtPrivate::QSlotObjectBase *, Qt::ConnectionType, void *)
VELT_UNOBSERVED bool
_ZN11QMetaObject16invokeMethodImplEP7QObjectPN9QtPrivate15QSlotObjectBaseEN2Qt14ConnectionTypeEPv(
    void *receiver, void *slot, int type, void *result)
{
    VELT_REAL(
        _ZN11QMetaObject16invokeMethodImplEP7QObjectPN9QtPrivate15QSlotObjectBaseEN2Qt14ConnectionTypeEPv,
        bool (*)(void *, void *, int, void *));
    __tsan_release(&posted);
    const bool found = real(receiver, slot, type, result);
    __tsan_acquire(&delivered);
    return found;
}

// QThreadPool::start(QRunnable *, int)
VELT_UNOBSERVED void _ZN11QThreadPool5startEP9QRunnablei(void *pool, void *runnable, int priority)
{
    VELT_REAL(_ZN11QThreadPool5startEP9QRunnablei, void (*)(void *, void *, int));
    __tsan_release(runnable);
    real(pool, runnable, priority);
}

// QFutureInterfaceBase::isCanceled() const: the first thing that a task of QtConcurrent::run does in its thread. The
// QRunnable that start() was given lies behind the two pointers of the future interface.
VELT_UNOBSERVED bool _ZNK20QFutureInterfaceBase10isCanceledEv(const void *future)
{
    VELT_REAL(_ZNK20QFutureInterfaceBase10isCanceledEv, bool (*)(const void *));
    __tsan_acquire(static_cast<void **>(const_cast<void *>(future)) + 2);
    return real(future);
}

// QFutureInterfaceBase::reportFinished, waitForFinished, waitForResult: the shared part lies behind the vtable pointer
VELT_UNOBSERVED void _ZN20QFutureInterfaceBase14reportFinishedEv(void *future)
{
    VELT_REAL(_ZN20QFutureInterfaceBase14reportFinishedEv, void (*)(void *));
    __tsan_release(static_cast<void **>(future)[1]);
    __tsan_release(&posted);
    real(future);
}

VELT_UNOBSERVED void _ZN20QFutureInterfaceBase15waitForFinishedEv(void *future)
{
    VELT_REAL(_ZN20QFutureInterfaceBase15waitForFinishedEv, void (*)(void *));
    real(future);
    __tsan_acquire(static_cast<void **>(future)[1]);
}

VELT_UNOBSERVED void _ZN20QFutureInterfaceBase13waitForResultEi(void *future, int index)
{
    VELT_REAL(_ZN20QFutureInterfaceBase13waitForResultEi, void (*)(void *, int));
    real(future, index);
    __tsan_acquire(static_cast<void **>(future)[1]);
}
}
