// Stands for the tool whose name it is started under: resgen.exe, lc.exe, tlbimp.exe, aximp.exe or al.exe. Says where
// it runs and what it is given, leaves the files that the tool would make, and does what the first word of its input
// file asks for: "fail" ends it with exit code 3, "crash" by a signal, "hang" lets it wait for ever.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <string>
#include <unistd.h>

namespace
{
std::string FileName(const std::string& Path)
{
    return Path.substr(Path.rfind('/') + 1);
}

void Write(const std::string& File, const std::string& Content)
{
    std::ofstream(File) << Content << "\r\n";
}

void ObeyInput(const std::string& File)
{
    std::string Word;
    std::ifstream(File) >> Word;
    if (Word == "crash")
        std::abort();
    while (Word == "hang")
        pause();
    if (Word == "fail")
    {
        std::fputs("error: told to fail\n", stderr);
        std::exit(3);
    }
}
} // namespace

int main(int Count, char** Arguments)
{
    const std::string Tool = FileName(Arguments[0]);
    char Folder[4096];
    std::printf("%s in %s", Tool.c_str(), getcwd(Folder, sizeof Folder));
    std::string Input;
    std::string Output;
    std::string Target;
    for (int Index = 1; Index < Count; ++Index)
    {
        const std::string Argument = Arguments[Index];
        std::printf(" [%s]", Argument.c_str());
        if (Argument.starts_with("/complist:"))
            Input = Argument.substr(10);
        else if (Argument.starts_with("/outdir:"))
            Output = Argument.substr(8) + '/';
        else if (Argument.starts_with("/embed:"))
            Input = Argument.substr(7, Argument.find(',') - 7);
        else if (Argument.starts_with("/target:") && Tool == "lc.exe")
            Target = Argument.substr(8) + ".licenses";
        else if (Argument.starts_with("/out:"))
            Output = Argument.substr(5);
        else if (Index == 1)
            Input = Argument;
        else if (Index == 2 && Tool == "resgen.exe")
            Output = Argument;
    }
    std::printf("\n");
    std::fflush(stdout);
    ObeyInput(Input);
    if (Tool != "aximp.exe")
        return Write(Output + Target, FileName(Input)), 0;
    const std::string Library = FileName(Input).substr(0, FileName(Input).find('.')) + ".dll";
    Write(Library, FileName(Input));
    Write("Ax" + Library, FileName(Input));
}
