// The "TONKARI_LAUNCH_MONITOR" value forms: what names a home monitor and
// what falls back to the primary one.
#include <gtest/gtest.h>

#include <string>

#include "app/launch_monitor.h"
#include "tests/printers.h"

namespace {

struct LaunchCase {
    const wchar_t* value;
    bool accepted;
    Rect rect;  // when accepted
};

const LaunchCase kCases[] = {
    {L"1920,0,3840,1080", true, {1920, 0, 3840, 1080}},
    {L"1920,0,3840,1080 launched by the shortcut", true, {1920, 0, 3840, 1080}},
    {L"1920,0,3840,1080x", false, {}},
    {L"1920;0;3840;1080", false, {}},
    {L"100,100,50,200", false, {}},       // right not beyond left
    {L"0,200,100,200", false, {}},        // bottom not below top
    {L"-1920,0,0,1080", true, {-1920, 0, 0, 1080}},
    {L" +5, -3,\t10,  7", true, {5, -3, 10, 7}},  // wcstol skips white space and takes signs
    {L",0,10,10", true, {0, 0, 10, 10}},  // a field without digits reads as 0
    {L"1920 ,0,3840,1080", false, {}},    // the comma must follow the digits
    {L"1920,0,3840", false, {}},
    {L"1920,0,3840,1080,5", false, {}},
    {L"", false, {}},
    {L"0,0,99999999999,1080", true, {0, 0, 2147483647, 1080}},  // saturates as a 32-bit long
    {L"-99999999999,0,10,1080", true, {-2147483647 - 1, 0, 10, 1080}},
    {L"0,-5,10,", true, {0, -5, 10, 0}},  // an empty last field is 0 too
    {L",,,", false, {}},                  // all 0: an empty rectangle
    {L"+,0,10,10", false, {}},            // a sign without digits leaves wcstol at the sign
    {L" ,0,10,10", false, {}},            // white space without digits likewise
    {L"1920,0,3840,1080,", false, {}},
    {L"1920,0,3840,1080\t", false, {}},   // only a space may end the value early
    {L"1920.5,0,3840,1080", false, {}},
    {L"0x780,0,3840,1080", false, {}},    // decimal only: the x stops the number
};

TEST(LaunchMonitorValue, FormsAcceptedAndRefused) {
    for (const LaunchCase& c : kCases) {
        Rect rect{-7, -7, -7, -7};
        EXPECT_EQ(ParseLaunchMonitorValue(c.value, rect), c.accepted) << c.value;
        if (c.accepted) {
            EXPECT_EQ(rect, c.rect);
        } else {
            EXPECT_EQ(rect, (Rect{-7, -7, -7, -7})) << "a refused value leaves the rectangle alone";
        }
    }
}

TEST(LaunchMonitorValue, SixtyFourCharactersAreTooLong) {
    std::wstring value = L"0,0,1920,1080 ";
    std::wstring fits = value + std::wstring(63 - value.size(), L'x');
    std::wstring tooLong = value + std::wstring(64 - value.size(), L'x');
    Rect rect;
    EXPECT_TRUE(ParseLaunchMonitorValue(fits, rect));
    EXPECT_FALSE(ParseLaunchMonitorValue(tooLong, rect));
}

}  // namespace
