#include <Pegasus/Common/CIMDateTime.h>

#include <Pegasus/Common/Exception.h>

#include <algorithm>
#include <array>
#include <ctime>

#include "model/ArrayImpl.h"

PEGASUS_NAMESPACE_BEGIN
namespace {

constexpr Sint64 second = 1000000;
constexpr Sint64 minute = 60 * second;
constexpr Sint64 hour = 60 * minute;
constexpr Sint64 day = 24 * hour;

constexpr Sint64 endOfTimeStamps = 315569520000000000;  // the year 10000
constexpr Sint64 endOfIntervals = 8640000000000000000;  // 100,000,000 days
constexpr Sint64 unixEpoch = 62167219200000000;

constexpr Uint32 textSize = 25;
constexpr Uint32 dotPlace = 14;
constexpr Uint32 signPlace = 21;
constexpr Uint32 digitCount = 20;
using Digits = std::array<Uint8, digitCount>;
using Text = std::array<char, textSize>;

/// Where the digits of the fields begin and how many there are.
struct Field {
    Uint32 begin;
    Uint32 size;
};
constexpr Field yearField{0, 4}, monthField{4, 2}, dayField{6, 2};
constexpr Field daysField{0, 8}, hourField{8, 2}, minuteField{10, 2}, secondField{12, 2};
constexpr Field microsecondField{14, 6};

constexpr bool isLeapYear(Uint32 year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

constexpr Uint32 daysOfMonth(Uint32 year, Uint32 month) {
    constexpr std::array<Uint8, 12> days{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return days[month - 1] + (month == 2 && isLeapYear(year) ? 1u : 0u);
}

/// Days from the beginning of the year 0, which is a leap year.
constexpr Uint32 daysBeforeYear(Uint32 year) {
    return year == 0 ? 0 : 365 * year + (year - 1) / 4 - (year - 1) / 100 + (year - 1) / 400 + 1;
}

constexpr Uint32 daysBeforeMonth(Uint32 year, Uint32 month) {
    Uint32 days = daysBeforeYear(year);
    for (Uint32 m = 1; m < month; ++m) {
        days += daysOfMonth(year, m);
    }
    return days;
}

struct Date {
    Uint32 year = 0;
    Uint32 month = 1;
    Uint32 dayOfMonth = 1;
};

constexpr Date dateOf(Uint32 days) {
    Date date;
    date.year = Uint32(Uint64(days) * 400 / 146097);
    date.year += daysBeforeYear(date.year + 1) <= days;
    date.year -= daysBeforeYear(date.year) > days;
    days -= daysBeforeYear(date.year);
    for (; days >= daysOfMonth(date.year, date.month); ++date.month) {
        days -= daysOfMonth(date.year, date.month);
    }
    date.dayOfMonth = days + 1;
    return date;
}

constexpr bool isDigit(Uint16 unit) {
    return unit >= '0' && unit <= '9';
}

void requireShape(bool right) {
    if (!right) {
        throw InvalidDateTimeFormatException();
    }
}

void requireRange(bool right, const char* message) {
    if (!right) {
        throw DateTimeOutOfRangeException(message);
    }
}

/// The place in the text of a digit, which the dot parts in two groups.
constexpr Uint32 placeOf(Uint32 digit) {
    return digit < dotPlace ? digit : digit + 1;
}

/// How many digits at the end are stars.
Uint8 countStars(const String& text) {
    Uint32 count = 0;
    while (count < digitCount && text[placeOf(digitCount - 1 - count)] == '*') {
        ++count;
    }
    return Uint8(count);
}

/// Whether the stars are whole fields, but for the microseconds, where any number of them is
/// allowed.
constexpr bool starsFillFields(Uint8 stars, bool isInterval) {
    return stars <= 6 || stars == 8 || stars == 10 || stars == 12 || stars == digitCount ||
           (!isInterval && (stars == 14 || stars == 16));
}

/// The digits, zeros in place of stars.
Digits readDigits(const String& text, Uint8 stars) {
    Digits digits{};
    for (Uint32 i = 0; i < digitCount - stars; ++i) {
        const Uint16 unit = text[placeOf(i)];
        requireShape(isDigit(unit));
        digits[i] = Uint8(unit - '0');
    }
    return digits;
}

/// The number a field's digits make; `ifStarred` when the field is made of stars.
Uint32 read(const Digits& digits, Field field, Uint8 stars, Uint32 ifStarred = 0) {
    if (field.begin >= digitCount - stars) {
        return ifStarred;
    }
    Uint32 number = 0;
    for (Uint32 i = field.begin; i < field.begin + field.size; ++i) {
        number = number * 10 + digits[i];
    }
    return number;
}

Sint64 readTimeOfDay(const Digits& digits, Uint8 stars) {
    const Uint32 hours = read(digits, hourField, stars);
    const Uint32 minutes = read(digits, minuteField, stars);
    const Uint32 seconds = read(digits, secondField, stars);
    requireRange(hours <= 23, "illegal hours number ");
    requireRange(minutes <= 59, "illegal minutes number ");
    requireRange(seconds <= 59, "illegal seconds number ");
    return hours * hour + minutes * minute + seconds * second +
           read(digits, microsecondField, stars);
}

Sint64 readDate(const Digits& digits, Uint8 stars) {
    const Uint32 year = read(digits, yearField, stars);
    const Uint32 month = read(digits, monthField, stars, 1);
    const Uint32 dayOfMonth = read(digits, dayField, stars, 1);
    requireRange(month >= 1 && month <= 12, "illegal month number");
    requireRange(dayOfMonth >= 1 && dayOfMonth <= daysOfMonth(year, month), "illegal day number");
    return (daysBeforeMonth(year, month) + dayOfMonth - 1) * day;
}

/// Minutes from UTC, as the last four units say.
Sint16 readUtcOffset(const String& text) {
    Sint16 offset = 0;
    for (Uint32 i = signPlace + 1; i < textSize; ++i) {
        requireShape(isDigit(text[i]));
        offset = Sint16(offset * 10 + (text[i] - '0'));
    }
    return text[signPlace] == '-' ? Sint16(-offset) : offset;
}

/// Writes `size` digits and returns the end of what it wrote.
char* writeNumber(char* to, Sint64 number, Uint32 size) {
    for (Uint32 i = size; i-- > 0; number /= 10) {
        to[i] = char('0' + number % 10);
    }
    return to + size;
}

/// Writes all from the hours up to the microseconds.
char* writeTimeOfDay(char* to, Sint64 microseconds) {
    to = writeNumber(to, microseconds / hour % 24, hourField.size);
    to = writeNumber(to, microseconds / minute % 60, minuteField.size);
    to = writeNumber(to, microseconds / second % 60, secondField.size);
    *to++ = '.';
    return writeNumber(to, microseconds % second, microsecondField.size);
}

void writeTimeStamp(char* to, Sint64 microseconds, int utcOffset) {
    const Date date = dateOf(Uint32(microseconds / day));
    to = writeNumber(to, date.year, yearField.size);
    to = writeNumber(to, date.month, monthField.size);
    to = writeNumber(to, date.dayOfMonth, dayField.size);
    to = writeTimeOfDay(to, microseconds);
    *to++ = utcOffset < 0 ? '-' : '+';
    writeNumber(to, utcOffset < 0 ? -utcOffset : utcOffset, 3);
}

void writeInterval(char* to, Sint64 microseconds) {
    to = writeNumber(to, microseconds / day, daysField.size);
    to = writeTimeOfDay(to, microseconds);
    *to++ = ':';
    writeNumber(to, 0, 3);
}

void requireInterval(bool is, const char* message) {
    if (!is) throw TypeMismatchException(message);
}

/// An interval is never negative.
Uint64 quotient(Sint64 microseconds, Uint64 divisor) {
    if (divisor == 0) throw Exception("Can not divide CIMDateTime by zero");
    return Uint64(microseconds) / divisor;
}

/// As strcmp, with stars that equal everything.
int compareTexts(const String& x, const String& y) {
    for (Uint32 i = 0; i < textSize; ++i) {
        if (x[i] != '*' && y[i] != '*' && x[i] != y[i]) {
            return x[i] < y[i] ? -1 : 1;
        }
    }
    return 0;
}

}  // namespace

CIMDateTime::CIMDateTime(const String& text) : CIMDateTime(parse(text)) {}

CIMDateTime::CIMDateTime(Uint64 microseconds, Boolean isInterval)
    : _microseconds(Sint64(microseconds)), _isInterval(isInterval) {
    const Sint64 end = isInterval ? endOfIntervals : endOfTimeStamps;
    requireRange(microseconds < Uint64(end), "too many microseconds");
}

CIMDateTime CIMDateTime::parse(const String& text) {
    requireShape(text.size() == textSize && text[dotPlace] == '.');
    const Char16 sign = text[signPlace];
    requireShape(sign == ':' || sign == '+' || sign == '-');
    CIMDateTime result;
    result._isInterval = sign == ':';
    result._stars = countStars(text);
    result._utcOffset = readUtcOffset(text);
    requireShape(starsFillFields(result._stars, result._isInterval));
    requireShape(!result._isInterval || result._utcOffset == 0);
    const Digits digits = readDigits(text, result._stars);
    const Sint64 days = result._isInterval ? read(digits, daysField, result._stars) * day
                                           : readDate(digits, result._stars);
    result._microseconds = days + readTimeOfDay(digits, result._stars);
    return result;
}

void CIMDateTime::set(const String& text) {
    clear();
    *this = parse(text);
}

String CIMDateTime::toString() const {
    Text text;
    if (_isInterval) {
        writeInterval(text.data(), _microseconds);
    } else {
        writeTimeStamp(text.data(), _microseconds, _utcOffset);
    }
    for (Uint32 digit = digitCount - _stars; digit < digitCount; ++digit) {
        text[placeOf(digit)] = '*';
    }
    return String(text.data(), textSize);
}

CIMDateTime CIMDateTime::getCurrentDateTime() {
    std::timespec now{};
    std::timespec_get(&now, TIME_UTC);
    std::tm local{};
    localtime_r(&now.tv_sec, &local);
    CIMDateTime result;
    result._isInterval = false;
    result._utcOffset = Sint16(local.tm_gmtoff / 60);
    result._microseconds = unixEpoch + now.tv_sec * second + now.tv_nsec / 1000;
    result._microseconds += result._utcOffset * minute;
    return result;
}

Sint64 CIMDateTime::getDifference(CIMDateTime start, CIMDateTime finish) {
    requireShape(start._isInterval == finish._isInterval);
    return finish.inUtc()._microseconds - start.inUtc()._microseconds;
}

/// The same time with the offset zero. An offset in minutes does not move a time that knows none,
/// nor one in hours a time without hours.
CIMDateTime CIMDateTime::inUtc() const noexcept {
    constexpr Uint8 starredMinutes = 10;
    constexpr Uint8 starredHours = 12;
    const int offset = _stars >= starredHours     ? 0
                       : _stars >= starredMinutes ? _utcOffset / 60 * 60
                                                  : _utcOffset;
    CIMDateTime result(*this);
    result._microseconds -= offset * minute;
    result._utcOffset = 0;
    return result;
}

/// The nearest time that has a text: an offset may lead out of the years 0 to 9999.
CIMDateTime CIMDateTime::representable() const noexcept {
    CIMDateTime result(*this);
    const Sint64 end = _isInterval ? endOfIntervals : endOfTimeStamps;
    result._microseconds = std::clamp<Sint64>(_microseconds, 0, end - 1);
    return result;
}

Uint64 CIMDateTime::toMicroSeconds() const noexcept {
    return Uint64(std::max<Sint64>(0, inUtc()._microseconds));
}

int CIMDateTime::compare(const CIMDateTime& x, const CIMDateTime& y) {
    if (x._isInterval != y._isInterval) {
        throw TypeMismatchException("Trying to compare CIMDateTime objects of differing types");
    }
    const CIMDateTime x1 = x.inUtc();
    const CIMDateTime y1 = y.inUtc();
    if (x._stars != 0 || y._stars != 0) {
        return compareTexts(x1.representable().toString(), y1.representable().toString());
    }
    return x1._microseconds < y1._microseconds ? -1 : x1._microseconds > y1._microseconds;
}

Boolean CIMDateTime::equal(const CIMDateTime& x) const {
    return compare(*this, x) == 0;
}

Boolean CIMDateTime::operator<(const CIMDateTime& x) const {
    return compare(*this, x) < 0;
}

Boolean CIMDateTime::operator<=(const CIMDateTime& x) const {
    return compare(*this, x) <= 0;
}

/// This value moved by an interval, its stars and those of the interval joined.
CIMDateTime CIMDateTime::shifted(Sint64 microseconds, const CIMDateTime& by) const {
    const Sint64 end = _isInterval ? endOfIntervals : endOfTimeStamps;
    requireRange(microseconds >= -_microseconds, "the result would be negative");
    requireRange(microseconds < end - _microseconds, "the result would be too large");
    CIMDateTime result(*this);
    result._microseconds += microseconds;
    result._stars = std::max(_stars, by._stars);
    return result;
}

CIMDateTime CIMDateTime::operator+(const CIMDateTime& x) const {
    if (!x._isInterval) {
        throw TypeMismatchException();
    }
    return shifted(x._microseconds, x);
}

CIMDateTime CIMDateTime::operator-(const CIMDateTime& x) const {
    if (x._isInterval) {
        return shifted(-x._microseconds, x);
    }
    if (_isInterval) {
        throw TypeMismatchException();
    }
    const Sint64 difference = getDifference(x, *this);
    requireRange(difference >= 0, "the result would be negative");
    return CIMDateTime(Uint64(difference), true);
}

CIMDateTime CIMDateTime::operator*(Uint64 x) const {
    requireInterval(_isInterval, "Can not multiply a TimeStamp by an integer");
    CIMDateTime result(*this);
    const bool isTooLarge = __builtin_mul_overflow(_microseconds, x, &result._microseconds) ||
                            result._microseconds >= endOfIntervals;
    requireRange(!isTooLarge, "the result would be too large");
    return result;
}

CIMDateTime CIMDateTime::operator/(Uint64 x) const {
    requireInterval(_isInterval, "Can not divide a TimeStamp by an integer");
    CIMDateTime result(*this);
    result._microseconds = Sint64(quotient(_microseconds, x));
    return result;
}

Uint64 CIMDateTime::operator/(const CIMDateTime& x) const {
    requireInterval(_isInterval && x._isInterval,
                    "Can not divide two CIMDateTime objects if one of them is a TimeStamp");
    return quotient(_microseconds, Uint64(x._microseconds));
}

template class Array<CIMDateTime>;

PEGASUS_NAMESPACE_END
