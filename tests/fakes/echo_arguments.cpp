// Prints its arguments, one on each line; a line end within one is shown as "\n", a backslash as two.
#include <cstdio>

int main(int Count, char** Arguments)
{
    for (int Index = 1; Index < Count; ++Index)
    {
        for (const char* Character = Arguments[Index]; *Character != '\0'; ++Character)
            if (*Character == '\n')
                std::fputs("\\n", stdout);
            else if (*Character == '\\')
                std::fputs("\\\\", stdout);
            else
                std::fputc(*Character, stdout);
        std::fputc('\n', stdout);
    }
}
