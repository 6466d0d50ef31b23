#include "app/demo/DemoGmail.h"

#include <cstdio>

#include "sample/GmailSettings.h"

namespace brindlet::demo {

bool MemoryKeyStore::has(const std::string& service, const std::string& account) {
    Lock lock(mutex_);
    return secrets_.contains({service, account});
}

std::optional<Secret> MemoryKeyStore::read(const std::string& service, const std::string& account) {
    Lock lock(mutex_);
    const auto found = secrets_.find({service, account});
    if (found == secrets_.end()) return std::nullopt;
    return Secret(found->second.text());
}

void MemoryKeyStore::save(const std::string& service, const std::string& account,
                          const Secret& secret) {
    Lock lock(mutex_);
    secrets_.insert_or_assign({service, account}, Secret(secret.text()));
}

void MemoryKeyStore::forget(const std::string& service, const std::string& account) {
    Lock lock(mutex_);
    secrets_.erase({service, account});
}

void tellAppPasswords(const std::string& home) {
    const auto settings = sample::readGmailSettings(home).value_or(sample::GmailSettings());
    for (const auto& [address, password] : settings.passwords)
        std::printf("Brindlet will ask for an app password of Gmail. That of %s is: %s\n",
                    address.c_str(), password.c_str());
    std::fflush(stdout);
}

}  // namespace brindlet::demo
