#include "platform/Parallel.h"

#include "platform/posix/QuietThread.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

namespace
{
constexpr std::size_t MaximumThreads = 4;
constexpr std::size_t WorthAThread = 16; ///< so many numbers

class TSharedWork
{
public:
    TSharedWork(std::size_t Count, const std::function<void(std::size_t)>& Work) : FCount(Count), FWork(Work) {}

    void Share()
    {
        const std::size_t Wanted =
            std::min({MaximumThreads, FCount / WorthAThread, std::size_t{std::thread::hardware_concurrency()}});
        std::vector<std::thread> Helpers;
        while (Helpers.size() + 1 < Wanted)
            Helpers.push_back(StartQuietly([this] { Do(); }));
        Do();
        for (std::thread& Helper : Helpers)
            if (Helper.joinable())
                Helper.join();
        if (FError)
            std::rethrow_exception(FError);
    }

private:
    void Do()
    try
    {
        for (std::size_t Number = FNext++; Number < FCount; Number = FNext++)
            FWork(Number);
    }
    catch (...)
    {
        FNext = FCount;
        const std::lock_guard Lock(FMutex);
        if (!FError)
            FError = std::current_exception();
    }

    std::size_t FCount;
    const std::function<void(std::size_t)>& FWork;
    std::atomic<std::size_t> FNext = 0;
    std::mutex FMutex;
    std::exception_ptr FError;
};
} // namespace

void ForEachAtOnce(std::size_t Count, const std::function<void(std::size_t)>& Work)
{
    TSharedWork(Count, Work).Share();
}
