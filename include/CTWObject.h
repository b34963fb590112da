#pragma once

#include "LumQtGlobal.h"

#include <atomic>

/// Interface of an object that counts its owners and deletes itself with the last of them.
/// \since 1.0
class LUMQT_EXPORT ITWObject
{
public:
    /// Adds an owner; returns the new count. Any thread.
    /// \since 1.0
    virtual long AddRef() = 0;

    /// Takes an owner away; returns the new count. At 0 the object is gone. Any thread.
    /// \since 1.0
    virtual long Release() = 0;

    virtual ~ITWObject();

protected:
    ITWObject() = default;
    /// Copies nothing: an interface has no state.
    /// \since 1.0
    ITWObject(const ITWObject &) = default;
    /// Assigns nothing: an interface has no state.
    /// \since 1.0
    ITWObject &operator=(const ITWObject &) = default;
};

/// Implements an ITWObject interface with an atomic count.
///
/// A new object has one owner: whoever made it. Make it with `new`; it deletes itself. AddRef() and Release()
/// may be called from any thread; copying and assigning may not run beside them. \since 1.0
template <class Interface> class CTWObject : public Interface
{
public:
    /// An object with the count 1.
    /// \since 1.0
    CTWObject() : m_count(1) {}

    /// Copies the count as well: a copy of an object with three owners starts with 3.
    /// \since 1.0
    CTWObject(const CTWObject &other) : Interface(other), m_count(other.m_count.load()) {}

    /// Copies the count as well.
    /// \since 1.0
    CTWObject &operator=(const CTWObject &other)
    {
        Interface::operator=(other);
        m_count.store(other.m_count.load());
        return *this;
    }

    ~CTWObject() override = default;

    /// Adds an owner; returns the new count.
    /// \since 1.0
    long AddRef() override { return ++m_count; }

    /// Takes an owner away; returns the new count, and deletes the object when that is 0. Calling it more
    /// often than there are owners is the caller's error. \since 1.0
    long Release() override
    {
        const long left = --m_count;
        if (left == 0)
            delete this;
        return left;
    }

private:
    std::atomic<qint32> m_count;
};
