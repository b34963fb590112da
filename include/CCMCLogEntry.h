#pragma once

#include "LumQtGlobal.h"

/// A name and an opaque pointer, kept together for whoever logs. Writes nothing anywhere.
/// \since 1.0
class LUMQT_EXPORT CCMCLogEntry
{
public:
    /// Stores \a name and \a context, which stays the caller's.
    ///
    /// Names of fewer than 200 bytes are kept whole, longer ones are cut; a null name is an empty one.
    /// \since 1.0
    CCMCLogEntry(const char *name, void *context);
    /// Copies the name and the pointer, not what it points to.
    /// \since 1.0
    CCMCLogEntry(const CCMCLogEntry &other) = default;
    /// Copies the name and the pointer, not what it points to.
    /// \since 1.0
    CCMCLogEntry &operator=(const CCMCLogEntry &other) = default;
    virtual ~CCMCLogEntry();

    /// The name, zero-terminated; lives as long as the entry.
    /// \since 1.0
    const char *name() const { return m_name; }

    /// The pointer given to the constructor.
    /// \since 1.0
    void *context() const { return m_context; }

private:
    static constexpr int NameSize = 200;
    char m_name[NameSize];
    void *m_context;
};
