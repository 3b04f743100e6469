// What Windows reads from Puffino.exe before any of its code runs: the
// application manifest, the icon group and the version block.
#include <gtest/gtest.h>

#include <windows.h>

#include <set>
#include <string>
#include <vector>

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

// The version block as Explorer's Details tab reads it: through the
// version library, in the block's own language and code page.
TEST(PuffinoVersion, NamesTheProductAndTheBuildsVersion) {
    const std::wstring path = PuffinoPath();
    DWORD ignored = 0;
    std::vector<BYTE> block(GetFileVersionInfoSizeW(path.c_str(), &ignored));
    ASSERT_FALSE(block.empty());
    ASSERT_TRUE(GetFileVersionInfoW(path.c_str(), 0, static_cast<DWORD>(block.size()), block.data()));

    VS_FIXEDFILEINFO* fixed = nullptr;
    UINT length = 0;
    ASSERT_TRUE(VerQueryValueW(block.data(), L"\\", reinterpret_cast<void**>(&fixed), &length));
    const DWORD high = MAKELONG(PUFFINO_VERSION_MINOR, PUFFINO_VERSION_MAJOR);
    const DWORD low = MAKELONG(0, PUFFINO_VERSION_PATCH);
    EXPECT_EQ(fixed->dwFileVersionMS, high);
    EXPECT_EQ(fixed->dwFileVersionLS, low);
    EXPECT_EQ(fixed->dwProductVersionMS, high);
    EXPECT_EQ(fixed->dwProductVersionLS, low);
    EXPECT_EQ(fixed->dwFileType, static_cast<DWORD>(VFT_APP));

    struct Translation { WORD language, codePage; }* translation = nullptr;
    ASSERT_TRUE(VerQueryValueW(block.data(), L"\\VarFileInfo\\Translation",
                               reinterpret_cast<void**>(&translation), &length));
    ASSERT_GE(length, sizeof(Translation));
    wchar_t table[32];
    swprintf(table, 32, L"\\StringFileInfo\\%04X%04X\\", translation->language, translation->codePage);

    const std::wstring version = L"" PUFFINO_VERSION;
    const struct { const wchar_t* key; std::wstring value; } expected[] = {
        {L"ProductName", L"Puffino"},
        {L"ProductVersion", version},
        {L"FileVersion", version},
        {L"OriginalFilename", L"Puffino.exe"},
    };
    for (const auto& [key, value] : expected) {
        wchar_t* text = nullptr;
        ASSERT_TRUE(VerQueryValueW(block.data(), (table + std::wstring(key)).c_str(),
                                   reinterpret_cast<void**>(&text), &length))
            << key;
        EXPECT_EQ(std::wstring(text), value) << key;
    }
}

}  // namespace
