#include "data/session.h"

#include "data/database.h"
#include "data/messages.h"

#include <cstdlib>

namespace {
std::unique_ptr<Session>& holder() {
    static std::unique_ptr<Session> instance;
    return instance;
}
} // namespace

Session& session() {
    auto& instance = holder();
    if (!instance) {
        instance = std::make_unique<Session>();
        instance->endProcess = [](int code) { std::exit(code); };
    }
    return *instance;
}

void resetSession() {
    holder().reset();
}
