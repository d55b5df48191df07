#include "core/settings.h"
#include "core/text.h"
#include "fuzz/fuzz_input.h"
#include "support/temp_folder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace partwright;
    static const test::TempFolder folder;
    setenv("XDG_CONFIG_HOME", folder.path().c_str(), 1);
    setenv("XDG_CONFIG_DIRS", "/nowhere", 1);
    folder.put(L"Varnel_Altium/Settings.ini", test::bytesOf(data, size));
    const auto call = [](RegistryOperation operation, std::wstring& value) {
        return ReadRegistryValue(1, operation, value, L"Settings", L"PLibPath");
    };
    std::wstring value;
    static_cast<void>(call(RegistryOperation::Read, value));
    test::demand(value.size() <= 2048, "a value has bounds");
    std::wstring written = L"/written=x";
    test::demand(call(RegistryOperation::Write, written) == RegistryStatus::Ok, "a write succeeds");
    test::demand(call(RegistryOperation::Read, value) == RegistryStatus::Ok && value == written,
                 "what was written is read");
    return 0;
}
