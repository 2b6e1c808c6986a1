#include "cli/cli_options.h"

#include <charconv>

namespace quillon {

CliOptions::CliOptions(const std::vector<std::string>& args, const std::set<std::string>& known,
                       const std::set<std::string>& flags) {
    for (size_t i = 0; i < args.size(); ++i) {
        const std::string& a = args[i];
        if (a.rfind("--", 0) != 0) {
            positional_.push_back(a);
            continue;
        }
        std::string name = a.substr(2);
        if (flags.contains(name)) {
            flags_.insert(name);
            continue;
        }
        if (!known.count(name)) throw UsageError("unknown option " + a);
        if (i + 1 >= args.size()) throw UsageError("option " + a + " needs a value");
        values_[name].push_back(args[++i]);
    }
}

std::optional<std::string> CliOptions::Get(const std::string& name) const {
    auto it = values_.find(name);
    if (it == values_.end()) return std::nullopt;
    return it->second.back();
}

std::vector<std::string> CliOptions::All(const std::string& name) const {
    auto it = values_.find(name);
    return it == values_.end() ? std::vector<std::string>{} : it->second;
}

std::string CliOptions::Require(const std::string& name) const {
    auto v = Get(name);
    if (!v) throw UsageError("missing --" + name);
    return *v;
}

long long CliOptions::Number(const std::string& name, long long fallback, long long min,
                             long long max) const {
    auto v = Get(name);
    if (!v) return fallback;
    long long n = 0;
    auto [end, ec] = std::from_chars(v->data(), v->data() + v->size(), n);
    if (ec != std::errc() || end != v->data() + v->size() || n < min || n > max)
        throw UsageError("--" + name + " must be a whole number from " + std::to_string(min) + " to " +
                         std::to_string(max));
    return n;
}

} // namespace quillon
