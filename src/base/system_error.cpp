// strerror would speak the language of the session, in the encoding of its locale.
#include "base/system_error.h"

#include <locale.h>

#include <cerrno>
#include <clocale>
#include <cstring>

namespace kalvex {

std::string ReasonOf(int errorNumber) {
    const locale_t plain = newlocale(LC_ALL_MASK, "C", nullptr);
    if (plain == nullptr) return "error " + std::to_string(errorNumber);
    std::string reason = strerror_l(errorNumber, plain);
    freelocale(plain);
    return reason;
}

bool IsUnsupported(int errorNumber) {
    return errorNumber == EINVAL || errorNumber == ENOTSUP || errorNumber == EOPNOTSUPP ||
           errorNumber == ENOSYS || errorNumber == EPERM;
}

}  // namespace kalvex
