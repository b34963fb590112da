#include "CCMCLogEntry.h"

#include <QByteArray>

CCMCLogEntry::CCMCLogEntry(const char *name, void *context) : m_name(), m_context(context)
{
    qstrncpy(m_name, name, NameSize);
}

CCMCLogEntry::~CCMCLogEntry() = default;
