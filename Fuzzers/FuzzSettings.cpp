#include "Fuzzers/Require.h"
#include "Tarnwick/Model/Settings.h"
#include "Tarnwick/Persistence/IniDocument.h"
#include "Tarnwick/Persistence/IniValue.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace IniValue = Tarnwick::IniValue;

namespace {

class FileInMemory : public Tarnwick::DefaultsStore {
public:
    explicit FileInMemory(std::string_view text)
        : _document(text)
    {}

    std::optional<std::string> value(std::string_view key) const override
    {
        const auto text = _document.value(IniValue::encodeKey(key));
        return text ? std::optional<std::string>(*text) : std::nullopt;
    }

    void set(std::string_view key, const std::string& value) override
    {
        _document.set(IniValue::encodeKey(key), value);
    }

    void remove(std::string_view key) override { _document.remove({IniValue::encodeKey(key)}); }

    std::vector<std::string> keys(std::string_view prefix) const override
    {
        std::vector<std::string> found;
        for (const std::string& name : _document.keys(IniValue::encodeKey(prefix))) {
            if (auto key = IniValue::decodeKey(name)) {
                found.push_back(std::move(*key));
            }
        }
        return found;
    }

    std::uint64_t revision() const override { return 0; }

    void change(const std::function<void()>& changes) override { changes(); }

    void refresh() override {}

    std::string text() const { return _document.text(); }

private:
    Tarnwick::IniDocument _document;
};

}  // namespace

/// Loading migrates older forms: loading again yields the same and writes nothing.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FileInMemory file(Fuzzers::textOf(data, size));
    Tarnwick::SettingsStore store(file);
    const Tarnwick::Settings settings = store.load();
    const std::string written = file.text();
    Fuzzers::require(store.load() == settings);
    Fuzzers::require(file.text() == written);

    store.setSelectedRepositories(settings.selectedRepositories);
    Fuzzers::require(store.load() == settings);
    return 0;
}
