/* A driver manager for trials under Wine, whose own one loads the drivers of the host, which have no drive letters.
   All calls go to the SQLite driver of the package (odbc32.def); only the list of data sources is made here, from the
   part of the registry that belongs to the user. Not part of the package. */
#include <windows.h>

#include <sql.h>
#include <sqlext.h>

static const WCHAR sources[] = L"Software\\ODBC\\ODBC.INI\\ODBC Data Sources";

SQLRETURN SQL_API SQLDataSourcesW(SQLHENV environment, SQLUSMALLINT direction, SQLWCHAR *name, SQLSMALLINT nameSize,
                                  SQLSMALLINT *nameLength, SQLWCHAR *description, SQLSMALLINT descriptionSize,
                                  SQLSMALLINT *descriptionLength) {
    static DWORD next = 0;
    DWORD nameRoom = (DWORD)nameSize, descriptionBytes = (DWORD)descriptionSize * sizeof(WCHAR);
    HKEY key;
    LSTATUS status;
    (void)environment;
    if (direction != SQL_FETCH_NEXT)
        next = 0;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, sources, 0, KEY_READ, &key) != ERROR_SUCCESS)
        return SQL_NO_DATA;
    status = RegEnumValueW(key, next++, (WCHAR *)name, &nameRoom, NULL, NULL, (BYTE *)description, &descriptionBytes);
    RegCloseKey(key);
    if (status != ERROR_SUCCESS)
        return SQL_NO_DATA;
    *nameLength = (SQLSMALLINT)nameRoom;
    *descriptionLength = (SQLSMALLINT)(descriptionBytes / sizeof(WCHAR) - 1);
    return SQL_SUCCESS;
}
