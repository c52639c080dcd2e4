#include "program/Privileges.h"

#include <grp.h>
#include <pwd.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <cerrno>
#include <stdexcept>
#include <system_error>

namespace cimserver {

namespace {

std::runtime_error cannotBecome(const std::string& user, const std::string& reason) {
    return std::runtime_error("cannot run as " + user + ": " + reason +
                              " (--user names another user)");
}

void become(const std::string& user, const passwd& account) {
    const bool done = initgroups(user.c_str(), account.pw_gid) == 0 &&
                      setresgid(account.pw_gid, account.pw_gid, account.pw_gid) == 0 &&
                      setresuid(account.pw_uid, account.pw_uid, account.pw_uid) == 0;
    if (!done) throw cannotBecome(user, std::generic_category().message(errno));
    if (setuid(0) == 0) throw cannotBecome(user, "the way back to root is open");
}

}  // namespace

void forbidNewRights() {
    if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0) return;
    throw std::system_error(errno, std::generic_category(), "cannot forbid new rights");
}

void leaveRoot(const std::string& user) {
    if (geteuid() != 0) return;
    const passwd* const account = getpwnam(user.c_str());
    if (!account) throw cannotBecome(user, "no such user");
    if (account->pw_uid != 0) become(user, *account);
}

}  // namespace cimserver
