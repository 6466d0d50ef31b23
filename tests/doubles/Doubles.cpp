#include "doubles/Doubles.h"

#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "base/Files.h"

namespace brindlet::doubles {

Date ManualClock::now() const {
    Lock lock(mutex_);
    return now_;
}

bool ManualClock::sleep(double seconds, const CancelToken& token) {
    const auto watch = token.onCancel([this] {
        Lock lock(mutex_);
        changed_.notifyAll();
    });
    Lock lock(mutex_);
    sleeps_.push_back(seconds);
    changed_.notifyAll();
    const Date until = now_ + seconds;
    while (now_ < until && !token.cancelled()) changed_.wait(mutex_);
    return !token.cancelled();
}

void ManualClock::set(Date now) {
    Lock lock(mutex_);
    now_ = now;
    changed_.notifyAll();
}

void ManualClock::advance(double seconds) {
    Lock lock(mutex_);
    now_ = now_ + seconds;
    changed_.notifyAll();
}

void ManualClock::waitForSleeps(int count) {
    Lock lock(mutex_);
    while (static_cast<int>(sleeps_.size()) < count) changed_.wait(mutex_);
}

std::vector<double> ManualClock::sleeps() const {
    Lock lock(mutex_);
    return sleeps_;
}

TemporaryDirectories::TemporaryDirectories() {
    std::string pattern = std::filesystem::temp_directory_path() / "brindlet-test-XXXXXX";
    root_ = ::mkdtemp(pattern.data());
    store_ = root_ + "/store";
    files::createDirectories(home());
    files::createDirectories(temporary());
}

TemporaryDirectories::~TemporaryDirectories() {
    clear();
}

void TemporaryDirectories::clear() {
    std::error_code ignored;
    std::filesystem::remove_all(root_, ignored);
}

std::string TemporaryDirectories::store() const {
    files::createDirectories(store_);
    return store_;
}

void PumpedQueue::post(std::function<void()> job) {
    Lock lock(mutex_);
    if (ended_) return;
    jobs_.push_back(std::move(job));
    changed_.notifyAll();
}

int PumpedQueue::pump() {
    int count = 0;
    while (tryOne() > 0) ++count;
    return count;
}

int PumpedQueue::tryOne() {
    std::function<void()> job;
    {
        Lock lock(mutex_);
        if (jobs_.empty()) return 0;
        job = std::move(jobs_.front());
        jobs_.pop_front();
    }
    job();
    return 1;
}

bool PumpedQueue::pumpUntil(const std::function<bool()>& condition) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!condition()) {
        std::function<void()> job;
        {
            Lock lock(mutex_);
            if (jobs_.empty()) changed_.waitFor(mutex_, std::chrono::milliseconds(20));
            if (!jobs_.empty()) {
                job = std::move(jobs_.front());
                jobs_.pop_front();
            }
        }
        if (job) job();
        if (std::chrono::steady_clock::now() > end) return false;
    }
    return true;
}

void PumpedQueue::end() {
    std::deque<std::function<void()>> dropped;
    Lock lock(mutex_);
    ended_ = true;
    dropped.swap(jobs_);
}

std::size_t PumpedQueue::waiting() const {
    Lock lock(mutex_);
    return jobs_.size();
}

namespace {

template <class T>
std::optional<T> typed(const MemoryDefaults& defaults, std::string_view key) {
    const auto found = defaults.raw.find(key);
    if (found == defaults.raw.end()) return std::nullopt;
    const T* value = std::get_if<T>(&found->second);
    return value ? std::optional<T>(*value) : std::nullopt;
}

}  // namespace

std::optional<bool> MemoryDefaults::boolean(std::string_view key) const {
    return typed<bool>(*this, key);
}
std::optional<std::int64_t> MemoryDefaults::integer(std::string_view key) const {
    return typed<std::int64_t>(*this, key);
}
std::optional<double> MemoryDefaults::number(std::string_view key) const {
    if (const auto whole = integer(key)) return static_cast<double>(*whole);
    return typed<double>(*this, key);
}
std::optional<std::string> MemoryDefaults::string(std::string_view key) const {
    return typed<std::string>(*this, key);
}
std::optional<std::string> MemoryDefaults::data(std::string_view key) const {
    const auto value = typed<Data>(*this, key);
    return value ? std::optional(value->bytes) : std::nullopt;
}
std::optional<UserDefaults::Strings> MemoryDefaults::strings(std::string_view key) const {
    return typed<Strings>(*this, key);
}
std::optional<UserDefaults::Dictionary> MemoryDefaults::dictionary(std::string_view key) const {
    return typed<Dictionary>(*this, key);
}
void MemoryDefaults::setBoolean(std::string_view key, bool value) {
    raw[std::string(key)] = value;
}
void MemoryDefaults::setInteger(std::string_view key, std::int64_t value) {
    raw[std::string(key)] = value;
}
void MemoryDefaults::setNumber(std::string_view key, double value) {
    raw[std::string(key)] = value;
}
void MemoryDefaults::setString(std::string_view key, const std::string& value) {
    raw[std::string(key)] = value;
}
void MemoryDefaults::setData(std::string_view key, const std::string& bytes) {
    raw[std::string(key)] = Data{bytes};
}
void MemoryDefaults::setStrings(std::string_view key, const Strings& value) {
    raw[std::string(key)] = value;
}
void MemoryDefaults::setDictionary(std::string_view key, const Dictionary& value) {
    raw[std::string(key)] = value;
}
void MemoryDefaults::remove(std::string_view key) {
    if (const auto found = raw.find(key); found != raw.end()) raw.erase(found);
}

ScriptedModel::Script ScriptedModel::always(std::string category) {
    return [category = std::move(category)](const Call&) { return Answer{{"category", category}}; };
}

std::optional<LanguageModel::Answer> ScriptedModel::respond(const std::string& instructions,
                                                            const ModelSchema& schema,
                                                            const std::string& prompt,
                                                            const ModelOptions& options) {
    const Call call{instructions, schema.name, prompt, options};
    Script script;
    {
        Lock lock(mutex_);
        calls_.push_back(call);
        if (++inFlight_ > mostInFlight_) mostInFlight_ = inFlight_;
        changed_.notifyAll();
        while (blocked_) changed_.wait(mutex_);
        --inFlight_;
        script = script_;
    }
    return script(call);
}

void ScriptedModel::setScript(Script script) {
    Lock lock(mutex_);
    script_ = std::move(script);
}

void ScriptedModel::block() {
    Lock lock(mutex_);
    blocked_ = true;
}

void ScriptedModel::release() {
    Lock lock(mutex_);
    blocked_ = false;
    changed_.notifyAll();
}

void ScriptedModel::waitForCalls(std::size_t count) {
    Lock lock(mutex_);
    while (calls_.size() < count) changed_.wait(mutex_);
}

std::vector<ScriptedModel::Call> ScriptedModel::calls() const {
    Lock lock(mutex_);
    return calls_;
}

int ScriptedModel::mostInFlight() const {
    Lock lock(mutex_);
    return mostInFlight_;
}

std::unique_ptr<Power::Activity> SettablePower::keepAwake(const std::string& reason) {
    struct Running : Activity {
        explicit Running(std::shared_ptr<int> c) : count(std::move(c)) { ++*count; }
        ~Running() override { --*count; }
        std::shared_ptr<int> count;
    };
    begun.push_back(reason);
    return std::make_unique<Running>(running_);
}

World& World::lasting() {
    static auto* const worlds = new std::vector<std::unique_ptr<World>>;
    return *worlds->emplace_back(std::make_unique<World>());
}

void World::retire() {
    model.release();
    processes.release();
    mainQueue.end();
    directories.clear();
}

std::string FixedLocale::grouped(std::int64_t number) const {
    std::string text = std::to_string(number);
    for (auto at = static_cast<std::ptrdiff_t>(text.size()) - 3; at > (number < 0 ? 1 : 0); at -= 3)
        text.insert(static_cast<std::size_t>(at), ",");
    return text;
}

std::string FixedLocale::dateTime(Date date) const {
    using namespace std::chrono;
    const auto minute = floor<minutes>(sys_seconds(seconds(std::llround(date.unix()))));
    const auto day = floor<days>(minute);
    const year_month_day calendar(day);
    const hh_mm_ss time(minute - day);
    char text[32];
    std::snprintf(text, sizeof text, "%d-%02u-%02u %02d:%02d", static_cast<int>(calendar.year()),
                  static_cast<unsigned>(calendar.month()), static_cast<unsigned>(calendar.day()),
                  static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()));
    return text;
}

}  // namespace brindlet::doubles
