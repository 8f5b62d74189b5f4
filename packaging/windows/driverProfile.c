/* Reads data sources for the SQLite driver, whose texts are UTF-8. */
#include <windows.h>

#include <odbcinst.h>

enum { longest = 1024 };

/* Takes the place of SQLGetPrivateProfileString(). Returns the length of the text in bytes; a text that does not fit
   into `size` bytes is empty. */
int WINAPI profileText(LPCSTR section, LPCSTR entry, LPCSTR standard, LPSTR text, int size, LPCSTR file) {
    WCHAR wideSection[longest], wideEntry[longest], wideStandard[longest], wideFile[longest], wide[longest];
    int length;
    if (size <= 0)
        return 0;
    text[0] = '\0';
    if (!MultiByteToWideChar(CP_UTF8, 0, section, -1, wideSection, longest) ||
        !MultiByteToWideChar(CP_UTF8, 0, entry, -1, wideEntry, longest) ||
        !MultiByteToWideChar(CP_UTF8, 0, standard, -1, wideStandard, longest) ||
        !MultiByteToWideChar(CP_UTF8, 0, file, -1, wideFile, longest))
        return 0;
    SQLGetPrivateProfileStringW(wideSection, wideEntry, wideStandard, wide, longest, wideFile);
    length = WideCharToMultiByte(CP_UTF8, 0, wide, -1, text, size, NULL, NULL);
    if (!length)
        text[0] = '\0';
    return length ? length - 1 : 0;
}
