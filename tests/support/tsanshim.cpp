// SPDX-License-Identifier: GPL-3.0-or-later
// Qt's libraries are not built with the thread sanitizer, so it does not see the synchronisation by Qt's mutexes,
// posted events and futures. These functions replace Qt's own ones and report it. Without them every program has false
// alarms.
#include <dlfcn.h>

extern "C" {
void __tsan_acquire(void *address);
void __tsan_release(void *address);
}

namespace
{
template <typename Function>
Function real(const char *symbol)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, symbol));
}

char posted;
char delivered;
char poolStarts;
} // namespace

#define SHIM extern "C" __attribute__((no_sanitize("thread"), visibility("default"), used))
#define SHIM_LOCK(symbol)                                                                                    \
    SHIM void symbol(void *mutex)                                                                            \
    {                                                                                                        \
        static const auto function = real<void (*)(void *)>(#symbol);                                        \
        function(mutex);                                                                                     \
        __tsan_acquire(mutex);                                                                               \
    }
#define SHIM_UNLOCK(symbol)                                                                                  \
    SHIM void symbol(void *mutex)                                                                            \
    {                                                                                                        \
        static const auto function = real<void (*)(void *)>(#symbol);                                        \
        __tsan_release(mutex);                                                                               \
        function(mutex);                                                                                     \
    }

SHIM_LOCK(_ZN6QMutex4lockEv)
SHIM_UNLOCK(_ZN6QMutex6unlockEv)
SHIM_LOCK(_ZN11QBasicMutex12lockInternalEv)
SHIM_UNLOCK(_ZN11QBasicMutex14unlockInternalEv)

// Posting happens inside the library. Therefore every emission and every queued call is ordered before all later
// deliveries.
SHIM void veltTsanBeforeDelivery()
{
    __tsan_acquire(&posted);
}

SHIM void veltTsanAfterDelivery()
{
    __tsan_release(&delivered);
}

// QMetaObject::activate(QObject*, const QMetaObject*, int, void**): a blocking queued emission returns after its slot
// has run in the other thread.
SHIM void
_ZN11QMetaObject8activateEP7QObjectPKS_iPPv(void *sender, const void *meta, int signal, void **arguments)
{
    static const auto function
        = real<void (*)(void *, const void *, int, void **)>("_ZN11QMetaObject8activateEP7QObjectPKS_iPPv");
    __tsan_release(&posted);
    function(sender, meta, signal, arguments);
    __tsan_acquire(&delivered);
}

// QMetaObject::invokeMethodImpl(QObject*, QtPrivate::QSlotObjectBase*, Qt::ConnectionType, void*)
SHIM bool _ZN11QMetaObject16invokeMethodImplEP7QObjectPN9QtPrivate15QSlotObjectBaseEN2Qt14ConnectionTypeEPv(
    void *object, void *slot, int type, void *result)
{
    static const auto function = real<bool (*)(void *, void *, int, void *)>(
        "_ZN11QMetaObject16invokeMethodImplEP7QObjectPN9QtPrivate15QSlotObjectBaseEN2Qt14ConnectionTypeEPv");
    __tsan_release(&posted);
    const bool invoked = function(object, slot, type, result);
    // After a blocking call, the caller sees all that was done in the other thread.
    __tsan_acquire(&delivered);
    return invoked;
}

// QThreadPool::start(QRunnable*, int), and QFutureInterfaceBase::isCanceled(), which a concurrent run calls first.
SHIM void _ZN11QThreadPool5startEP9QRunnablei(void *pool, void *runnable, int priority)
{
    static const auto function = real<void (*)(void *, void *, int)>("_ZN11QThreadPool5startEP9QRunnablei");
    __tsan_release(&poolStarts);
    function(pool, runnable, priority);
}

SHIM bool _ZNK20QFutureInterfaceBase10isCanceledEv(const void *future)
{
    static const auto function = real<bool (*)(const void *)>("_ZNK20QFutureInterfaceBase10isCanceledEv");
    __tsan_acquire(&poolStarts);
    return function(future);
}

// QFutureInterfaceBase::reportFinished(), waitForFinished(), waitForResult(int). The shared state is the second word.
SHIM void _ZN20QFutureInterfaceBase14reportFinishedEv(void *future)
{
    static const auto function = real<void (*)(void *)>("_ZN20QFutureInterfaceBase14reportFinishedEv");
    __tsan_release(*(static_cast<void **>(future) + 1));
    function(future);
}

SHIM void _ZN20QFutureInterfaceBase15waitForFinishedEv(void *future)
{
    static const auto function = real<void (*)(void *)>("_ZN20QFutureInterfaceBase15waitForFinishedEv");
    function(future);
    __tsan_acquire(*(static_cast<void **>(future) + 1));
}

SHIM void _ZN20QFutureInterfaceBase13waitForResultEi(void *future, int index)
{
    static const auto function = real<void (*)(void *, int)>("_ZN20QFutureInterfaceBase13waitForResultEi");
    function(future, index);
    __tsan_acquire(*(static_cast<void **>(future) + 1));
}
