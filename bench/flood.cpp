// A tool that prints 1 GiB of lines of 80 bytes.
#include <cstddef>
#include <cstdio>
#include <string>

int main()
{
    const std::string Line = std::string(79, 'x') + "\n";
    std::string Block;
    while (Block.size() < 1 << 20)
        Block += Line;
    const std::size_t Total = std::size_t{1} << 30;
    std::setvbuf(stdout, nullptr, _IONBF, 0);
    for (std::size_t Written = 0; Written < Total; Written += Block.size())
        if (std::fwrite(Block.data(), 1, Block.size(), stdout) != Block.size())
            return 1;
    return 0;
}
