#include <dirent.h>
#include <dlfcn.h>

#include <cstdlib>
#include <string>

// Loaded into Dovecot's own processes. Where the server finds its programs is a setting, but where
// the login process finds its TLS is built in: /usr/lib/dovecot/modules, which is nowhere as long
// as nothing is installed. Here that place is below the folder that BRINDLET_DOVECOT names.

namespace {

std::string whereItIs(const char* path) {
    const std::string builtIn = "/usr/lib/dovecot/modules";
    const char* const folder = std::getenv("BRINDLET_DOVECOT");
    const std::string asked = path;
    return folder && asked.starts_with(builtIn) ? folder + asked : asked;
}

template <class Function>
Function* systems(const char* name) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

}  // namespace

// What follows stands in the place of the system's own.

extern "C" DIR* opendir(const char* path) {
    static auto* const next = systems<DIR*(const char*)>("opendir");
    return next(whereItIs(path).c_str());
}

extern "C" void* dlopen(const char* path, int mode) {
    static auto* const next = systems<void*(const char*, int)>("dlopen");
    return path ? next(whereItIs(path).c_str(), mode) : next(path, mode);
}
