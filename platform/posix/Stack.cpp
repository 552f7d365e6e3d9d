#include "platform/Stack.h"

#include <cstddef>
#include <exception>
#include <pthread.h>
#include <sys/resource.h>

namespace
{
constexpr std::size_t UsualSize = 8U << 20U;

struct TWork
{
    const std::function<void()>& Function;
    std::exception_ptr Failure;

    static void* Run(void* Work)
    {
        auto& Own = *static_cast<TWork*>(Work);
        try
        {
            Own.Function();
        }
        catch (...) // thrown again where the work was asked for
        {
            Own.Failure = std::current_exception();
        }
        return nullptr;
    }
};

bool IsStackSmall()
{
    rlimit Limit{};
    return getrlimit(RLIMIT_STACK, &Limit) == 0 && Limit.rlim_cur < UsualSize;
}

/// False: no thread can be had.
bool RunOnOwnStack(TWork& Work)
{
    pthread_attr_t Attributes;
    pthread_t Thread{};
    pthread_attr_init(&Attributes);
    pthread_attr_setstacksize(&Attributes, UsualSize);
    const bool IsStarted = pthread_create(&Thread, &Attributes, &TWork::Run, &Work) == 0;
    pthread_attr_destroy(&Attributes);
    if (IsStarted)
        pthread_join(Thread, nullptr);
    return IsStarted;
}
} // namespace

void WithRoomForCalls(const std::function<void()>& Function)
{
    TWork Work{Function, nullptr};
    if (!IsStackSmall() || !RunOnOwnStack(Work))
        return Function();
    if (Work.Failure)
        std::rethrow_exception(Work.Failure);
}
