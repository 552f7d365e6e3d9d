// The yardstick for a tool's output: starts the tool, reads its pipe in large blocks and counts lines.
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstring>
#include <vector>

int main(int, char** Arguments)
{
    std::array<int, 2> Pipe{};
    if (pipe(Pipe.data()) != 0)
        return 2;
    const pid_t Child = fork();
    if (Child == 0)
    {
        dup2(Pipe[1], STDOUT_FILENO);
        close(Pipe[0]);
        close(Pipe[1]);
        execv(Arguments[1], Arguments + 1);
        _exit(127);
    }
    close(Pipe[1]);
    std::vector<char> Block(256 * 1024);
    std::size_t Lines = 0;
    for (ssize_t Count = 0; (Count = read(Pipe[0], Block.data(), Block.size())) > 0;)
    {
        const char* Position = Block.data();
        const char* const End = Position + Count;
        while ((Position =
                    static_cast<const char*>(std::memchr(Position, '\n', static_cast<std::size_t>(End - Position)))))
        {
            ++Lines;
            ++Position;
        }
    }
    int Status = 0;
    waitpid(Child, &Status, 0);
    std::printf("%zu lines\n", Lines);
    return Status == 0 ? 0 : 1;
}
