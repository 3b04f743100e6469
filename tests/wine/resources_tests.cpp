// What Windows reads from Puffino.exe before any of its code runs: the
// application manifest and the icon group.
#include <gtest/gtest.h>

#include <windows.h>

#include <set>
#include <string>

#include "assets/asset_paths.h"

namespace {

// Puffino.exe sits one folder above this test program.
std::wstring PuffinoPath() { return JoinPath(ParentFolder(ExecutableFolder()), L"Puffino.exe"); }

#pragma pack(push, 2)
struct IconDirectoryEntry {
    BYTE width, height, colours, reserved;
    WORD planes, bitCount;
    DWORD bytes;
    WORD id;
};
struct IconDirectory {
    WORD reserved, type, count;
    IconDirectoryEntry entries[1];
};
#pragma pack(pop)

class PuffinoResources : public ::testing::Test {
protected:
    void SetUp() override {
        module = LoadLibraryExW(PuffinoPath().c_str(), nullptr,
                                LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE);
        ASSERT_NE(module, nullptr);
    }
    void TearDown() override { FreeLibrary(module); }

    std::string Resource(LPCWSTR type, LPCWSTR name) {
        HRSRC found = FindResourceW(module, name, type);
        if (!found) return {};
        const auto* bytes = static_cast<const char*>(LockResource(LoadResource(module, found)));
        return std::string(bytes, SizeofResource(module, found));
    }

    HMODULE module = nullptr;
};

TEST_F(PuffinoResources, ManifestDeclaresPerMonitorDpiAndRunsAsInvoker) {
    const std::string manifest = Resource(MAKEINTRESOURCEW(24), MAKEINTRESOURCEW(1));
    ASSERT_FALSE(manifest.empty());
    for (const char* needle : {"<dpiAware xmlns=\"http://schemas.microsoft.com/SMI/2005/WindowsSettings\">true/pm</dpiAware>",
                               ">PerMonitorV2</dpiAwareness>", "level=\"asInvoker\"", "uiAccess=\"false\""}) {
        EXPECT_NE(manifest.find(needle), std::string::npos) << needle;
    }
}

TEST_F(PuffinoResources, IconGroup101HasTheFourSizes) {
    const std::string group = Resource(MAKEINTRESOURCEW(14), MAKEINTRESOURCEW(101));  // RT_GROUP_ICON
    ASSERT_GE(group.size(), sizeof(IconDirectory));
    const auto* directory = reinterpret_cast<const IconDirectory*>(group.data());
    std::set<int> sizes;
    for (WORD i = 0; i < directory->count; ++i) {
        const IconDirectoryEntry& entry = directory->entries[i];
        sizes.insert(entry.width == 0 ? 256 : entry.width);  // 0 stands for 256
        EXPECT_EQ(entry.width, entry.height);
        EXPECT_FALSE(Resource(MAKEINTRESOURCEW(3), MAKEINTRESOURCEW(entry.id)).empty())  // RT_ICON
            << "image " << entry.id;
    }
    EXPECT_EQ(sizes, (std::set<int>{32, 64, 128, 256}));
}

}  // namespace
