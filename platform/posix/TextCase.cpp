#include "platform/CharacterCase.h"

#include <locale.h>
#include <wctype.h>

char32_t LowerCharacter(char32_t Character)
{
    // A locale of our own: names must fold alike whatever LANG says, and setlocale would change the whole program.
    static const locale_t Unicode = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    if (Unicode == nullptr)
        return Character;
    return static_cast<char32_t>(towlower_l(static_cast<wint_t>(Character), Unicode));
}
