// Points in time and intervals.
#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Linkage.h>
#include <Pegasus/Common/String.h>

PEGASUS_NAMESPACE_BEGIN

/// A CIM datetime: a time stamp `yyyymmddhhmmss.mmmmmmsutc` (s is + or -, utc the minutes from UTC)
/// or an interval `ddddddddhhmmss.mmmmmm:000`. Trailing digits may be stars, which stand for
/// anything: whole fields, and any number of the microseconds' digits. A value.
///
/// Comparing or subtracting across the two kinds throws TypeMismatchException.
class PEGASUS_COMMON_LINKAGE CIMDateTime {
  public:
    /// The interval of length zero.
    CIMDateTime() noexcept = default;

    /// Throws InvalidDateTimeFormatException when the text has another shape,
    /// DateTimeOutOfRangeException when a field's value is impossible.
    CIMDateTime(const String& text);

    /// Microseconds since 1 BC began (time stamp, offset zero), or of the interval. Too many for
    /// the text form throw DateTimeOutOfRangeException.
    CIMDateTime(Uint64 microseconds, Boolean isInterval);

    /// As the constructor; after a failure the value is the interval of length zero.
    void set(const String& text);
    void clear() noexcept { *this = CIMDateTime(); }

    String toString() const;

    /// Now, in local time with its offset.
    static CIMDateTime getCurrentDateTime();

    /// `finish - start` in microseconds; two different kinds throw InvalidDateTimeFormatException.
    static Sint64 getDifference(CIMDateTime start, CIMDateTime finish);

    Boolean isInterval() const noexcept { return _isInterval; }

    /// Since 1 BC began, in UTC; the length of an interval. Stars count as the least value.
    Uint64 toMicroSeconds() const noexcept;

    /// Time stamps compare in UTC; a star matches anything.
    Boolean equal(const CIMDateTime& x) const;
    Boolean operator!=(const CIMDateTime& x) const { return !equal(x); }
    Boolean operator<(const CIMDateTime& x) const;
    Boolean operator<=(const CIMDateTime& x) const;
    Boolean operator>(const CIMDateTime& x) const { return x < *this; }
    Boolean operator>=(const CIMDateTime& x) const { return x <= *this; }

    /// An interval may be added to or taken from either kind, a time stamp taken from a time stamp.
    /// Stars spread to the result. A result below zero or too large throws
    /// DateTimeOutOfRangeException.
    CIMDateTime operator+(const CIMDateTime& x) const;
    CIMDateTime operator-(const CIMDateTime& x) const;
    CIMDateTime& operator+=(const CIMDateTime& x) { return *this = *this + x; }
    CIMDateTime& operator-=(const CIMDateTime& x) { return *this = *this - x; }

    /// An interval may be multiplied, divided, and divided by an interval, whole parts counted; a
    /// time stamp throws TypeMismatchException. A product that is too large throws
    /// DateTimeOutOfRangeException, a division by zero Exception.
    CIMDateTime operator*(Uint64 x) const;
    CIMDateTime operator/(Uint64 x) const;
    CIMDateTime& operator*=(Uint64 x) { return *this = *this * x; }
    CIMDateTime& operator/=(Uint64 x) { return *this = *this / x; }
    Uint64 operator/(const CIMDateTime& x) const;

  private:
    static CIMDateTime parse(const String& text);
    static int compare(const CIMDateTime& x, const CIMDateTime& y);
    CIMDateTime shifted(Sint64 microseconds, const CIMDateTime& by) const;
    CIMDateTime inUtc() const noexcept;
    CIMDateTime representable() const noexcept;

    Sint64 _microseconds =
        0;                  ///< since 1 BC began by the local clock, or the length of the interval
    Sint16 _utcOffset = 0;  ///< minutes east of UTC
    Uint8 _stars = 0;       ///< how many of the 20 digits are stars, counted from the last
    Boolean _isInterval = true;
};

inline Boolean operator==(const CIMDateTime& x, const CIMDateTime& y) {
    return x.equal(y);
}

extern template class Array<CIMDateTime>;

PEGASUS_NAMESPACE_END
