// cli_options.h — quillon-cli's argument reading: positional words and "--name value" options,
// each command naming the options it knows, so a mistyped option is an error, not ignored.
#pragma once

#include <map>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace quillon {

class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

class CliOptions {
public:
    // Throws UsageError for an option not in `known` or an option without its value; the
    // options in `flags` take no value.
    CliOptions(const std::vector<std::string>& args, const std::set<std::string>& known,
               const std::set<std::string>& flags = {});

    const std::vector<std::string>& Positional() const { return positional_; }
    // The last value of an option given more than once.
    std::optional<std::string> Get(const std::string& name) const;
    // Whether a flag was given.
    bool Has(const std::string& flag) const { return flags_.contains(flag); }
    // Every value of an option, in the order given.
    std::vector<std::string> All(const std::string& name) const;
    std::string Require(const std::string& name) const;
    // A whole number in [min, max], else UsageError.
    long long Number(const std::string& name, long long fallback, long long min, long long max) const;

private:
    std::vector<std::string> positional_;
    std::map<std::string, std::vector<std::string>> values_;
    std::set<std::string> flags_;
};

} // namespace quillon
