#pragma once

#include <QDir>

#ifdef Q_OS_WIN
#include <windows.h>

#include <tlhelp32.h>
#endif

// What a process holds of the system, for tests of what may be left behind.
struct ProcessCounts
{
    int threads = 0;
    int handles = 0;

    static ProcessCounts now()
    {
        ProcessCounts counts;
#ifdef Q_OS_WIN
        DWORD handles = 0;
        GetProcessHandleCount(GetCurrentProcess(), &handles);
        counts.handles = int(handles);
        const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
        THREADENTRY32 entry = {};
        entry.dwSize = sizeof(entry);
        for (BOOL more = Thread32First(snapshot, &entry); more; more = Thread32Next(snapshot, &entry))
            counts.threads += entry.th32OwnerProcessID == GetCurrentProcessId();
        CloseHandle(snapshot);
#else
        const auto entries = QDir::Dirs | QDir::Files | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot;
        counts.threads = QDir(QStringLiteral("/proc/self/task")).entryList(entries).size();
        counts.handles = QDir(QStringLiteral("/proc/self/fd")).entryList(entries).size();
#endif
        return counts;
    }
};
