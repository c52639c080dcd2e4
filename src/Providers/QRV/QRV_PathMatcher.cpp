#include "QRV_PathMatcher.h"

#include <algorithm>

namespace Pegasus {

namespace {

/// Whether a text may be that of a path. Without keys it would have to end in a class name. Most
/// string keys don't, and need not be told apart by an exception.
bool mayBePath(const String& text) {
    if (text.size() == 0) return false;
    if (text.find('=') != PEG_NOT_FOUND) return true;
    const Uint32 end = text[text.size() - 1] == '.' ? text.size() - 1 : text.size();
    const Uint32 colon = text.reverseFind(':');
    const Uint32 begin = colon == PEG_NOT_FOUND ? 0 : colon + 1;
    return begin < end && CIMName::legal(text.subString(begin, end - begin));
}

/// The key with the path in it, if it holds one, as a reference without host.
CIMKeyBinding normalizedKey(const CIMKeyBinding& key) {
    const bool holdsText =
        key.getType() == CIMKeyBinding::REFERENCE || key.getType() == CIMKeyBinding::STRING;
    if (!holdsText || !mayBePath(key.getValue())) return key;
    try {
        const CIMObjectPath held(key.getValue());
        const CIMObjectPath bare(String(), held.getNameSpace(), held.getClassName(),
                                 held.getKeyBindings());
        return CIMKeyBinding(key.getName(), bare.toString(), CIMKeyBinding::REFERENCE);
    } catch (...) {
        return key;
    }
}

CIMObjectPath normalizedPath(const CIMObjectPath& path) {
    const Array<CIMKeyBinding>& given = path.getKeyBindings();
    Array<CIMKeyBinding> keys;
    for (Uint32 i = 0; i < given.size(); ++i) keys.append(normalizedKey(given[i]));
    return CIMObjectPath(String(), path.getNameSpace(), path.getClassName(), keys);
}

/// Where the value of a path's only key begins, when it is a quoted text without a path in it;
/// otherwise null.
const Char16* plainValue(const Char16* begin, const Char16* end) {
    const Char16* const equals = std::find(begin, end, Char16('='));
    const bool quoted = end - equals > 2 && equals[1] == '"' && end[-1] == '"';
    return quoted && std::find(equals + 1, end, Char16('=')) == end ? equals + 1 : nullptr;
}

/// Whether two references differ in the value of their one key. Then there is no need to take them
/// apart, which is what matching against many paths of one association would else spend its time
/// on. False says nothing.
bool surelyDiffer(const String& left, const String& right) {
    const Char16* const leftEnd = left.getChar16Data() + left.size();
    const Char16* const rightEnd = right.getChar16Data() + right.size();
    const Char16* const leftValue = plainValue(left.getChar16Data(), leftEnd);
    const Char16* const rightValue = plainValue(right.getChar16Data(), rightEnd);
    return leftValue != nullptr && rightValue != nullptr &&
           !std::equal(leftValue, leftEnd, rightValue, rightEnd);
}

bool sameShape(const CIMObjectPath& a, const CIMObjectPath& b) {
    return a.getClassName().equal(b.getClassName()) && a.getNameSpace().equal(b.getNameSpace()) &&
           a.getKeyBindings().size() == b.getKeyBindings().size();
}

enum class Verdict { Same, Different, Unknown };

/// What can be said of two paths of one shape without taking references apart.
Verdict compareTexts(const Array<CIMKeyBinding>& a, const Array<CIMKeyBinding>& b) {
    Verdict verdict = Verdict::Same;
    for (Uint32 i = 0; i < a.size(); ++i) {
        if (!a[i].getName().equal(b[i].getName())) return Verdict::Unknown;
        if (a[i].getType() == b[i].getType() && a[i].getValue() == b[i].getValue()) continue;
        if (a[i].getType() == CIMKeyBinding::REFERENCE &&
            b[i].getType() == CIMKeyBinding::REFERENCE &&
            surelyDiffer(a[i].getValue(), b[i].getValue()))
            return Verdict::Different;
        verdict = Verdict::Unknown;
    }
    return verdict;
}

}  // namespace

bool PathMatcher::matches(const CIMObjectPath& candidate) const {
    if (!sameShape(_target, candidate)) return false;
    const Verdict verdict = compareTexts(_target.getKeyBindings(), candidate.getKeyBindings());
    if (verdict != Verdict::Unknown) return verdict == Verdict::Same;
    if (!_normalized) _normalized = normalizedPath(_target);
    return _normalized->identical(normalizedPath(candidate));
}

CIMObjectPath underClass(const CIMObjectPath& path, const CIMName& className) {
    CIMObjectPath result = path;
    result.setClassName(className);
    return result;
}

Array<CIMInstance> matching(const CIMObjectPath& instanceName,
                            const Array<CIMInstance>& instances) {
    const PathMatcher wanted(instanceName);
    Array<CIMInstance> found;
    for (Uint32 i = 0; i < instances.size() && found.size() == 0; ++i)
        if (wanted.matches(instances[i].getPath())) found.append(instances[i]);
    return found;
}

}  // namespace Pegasus
