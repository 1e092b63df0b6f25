// The settings: the single record of `Sysinfo.par`, 4205 bytes, read directly by every window.
#pragma once

#include "core/formats/FixedText.h"
#include "core/formats/Layout.h"

#include <array>

namespace ecg {

inline constexpr std::size_t LeadCount = 12;
inline constexpr std::size_t DoctorCount = 8;
inline constexpr std::size_t ExaminationCount = 9;
inline constexpr std::size_t ClassCount = 64;

// A colour as three bytes.
struct Rgb {
    Byte R = 0;
    Byte G = 0;
    Byte B = 0;

    friend bool operator==(const Rgb&, const Rgb&) = default;
};

struct SysInfo {
    FixedText<24> HospitalName;
    FixedText<100> HospitalAddress;
    FixedText<32> HospitalTel;
    FixedText<32> HospitalFax;
    FixedText<32> HospitalWeb;
    FixedText<64> HospitalMail;
    std::array<FixedText<24>, ClassCount> ClassName;  // department names
    std::array<FixedText<32>, 64> ReservedNames;
    std::array<FixedText<12>, 4> CustomItemName;       // names of the patient's custom items
    Int16 LeadSystem{};                                // 0 Wilson, 1 Frank
    Int16 GainIndex{};                                 // 0 to 2: 5, 10, 20 mm/mV
    Int16 SpeedIndex{};                                // 0 to 2: 12.5, 25, 50 mm/s
    Int32 SampleLimit{};                               // frames of the running sampling
    std::array<Byte, 3> FilterOn{};                    // AC, baseline, muscle: 0 off, 1 on
    std::array<Byte, 3> FilterIndex{};                 // chosen setting: AC 0 to 1, baseline 0 to 3, muscle 0 to 5
    std::array<Byte, LeadCount> LeadShow{};            // 1 = lead shown, in lead order
    Byte BaselineReturn = 0;                           // step of the baseline return
    std::array<Int32, ExaminationCount> SampleTime{};  // frames; 0 to 4 Wilson, 5 to 8 Frank
    Byte LeadPrompt = 0;                               // 1 = prompt for the electrode connection
    Byte SystemControlTime = 0;                        // 1 = the time ends a sampling, 0 = the user does
    Byte PrintQuality = 0;                             // 0 normal, 1 fine
    Byte PrintReserved = 0;
    Byte PrintMono = 0;       // 1 black-and-white grid, 0 colour grid
    Byte GridHue = 0;         // 0 red, 1 green, 2 blue
    Byte Depth5mmColour = 0;  // 0 to 3
    Byte Depth1mmColour = 0;  // 0 to 3
    Byte Depth5mmMono = 0;    // 0 to 7
    Byte Depth1mmMono = 0;    // 0 to 7
    Byte PrintPortrait = 0;   // 0 landscape, 1 portrait
    Rgb TraceWatch;
    Rgb TraceSave;
    Rgb TraceReset;
    Rgb PaperBack;
    Rgb Grid5mm;
    Rgb Grid1mm;
    Byte Language = 0;  // 1 Chinese, otherwise English
    std::array<FixedText<24>, DoctorCount> DoctorNames;
    std::array<Byte, 2> Unused{};
};

static_assert(IsFixedRecord<SysInfo, 4205>);
static_assert(offsetof(SysInfo, HospitalName) == 0);
static_assert(offsetof(SysInfo, HospitalAddress) == 24);
static_assert(offsetof(SysInfo, HospitalTel) == 124);
static_assert(offsetof(SysInfo, HospitalFax) == 156);
static_assert(offsetof(SysInfo, HospitalWeb) == 188);
static_assert(offsetof(SysInfo, HospitalMail) == 220);
static_assert(offsetof(SysInfo, ClassName) == 284);
static_assert(offsetof(SysInfo, ReservedNames) == 1820);
static_assert(offsetof(SysInfo, CustomItemName) == 3868);
static_assert(offsetof(SysInfo, LeadSystem) == 3916);
static_assert(offsetof(SysInfo, GainIndex) == 3918);
static_assert(offsetof(SysInfo, SpeedIndex) == 3920);
static_assert(offsetof(SysInfo, SampleLimit) == 3922);
static_assert(offsetof(SysInfo, FilterOn) == 3926);
static_assert(offsetof(SysInfo, FilterIndex) == 3929);
static_assert(offsetof(SysInfo, LeadShow) == 3932);
static_assert(offsetof(SysInfo, BaselineReturn) == 3944);
static_assert(offsetof(SysInfo, SampleTime) == 3945);
static_assert(offsetof(SysInfo, LeadPrompt) == 3981);
static_assert(offsetof(SysInfo, SystemControlTime) == 3982);
static_assert(offsetof(SysInfo, PrintQuality) == 3983);
static_assert(offsetof(SysInfo, PrintReserved) == 3984);
static_assert(offsetof(SysInfo, PrintMono) == 3985);
static_assert(offsetof(SysInfo, GridHue) == 3986);
static_assert(offsetof(SysInfo, Depth5mmColour) == 3987);
static_assert(offsetof(SysInfo, Depth1mmColour) == 3988);
static_assert(offsetof(SysInfo, Depth5mmMono) == 3989);
static_assert(offsetof(SysInfo, Depth1mmMono) == 3990);
static_assert(offsetof(SysInfo, PrintPortrait) == 3991);
static_assert(offsetof(SysInfo, TraceWatch) == 3992);
static_assert(offsetof(SysInfo, TraceSave) == 3995);
static_assert(offsetof(SysInfo, TraceReset) == 3998);
static_assert(offsetof(SysInfo, PaperBack) == 4001);
static_assert(offsetof(SysInfo, Grid5mm) == 4004);
static_assert(offsetof(SysInfo, Grid1mm) == 4007);
static_assert(offsetof(SysInfo, Language) == 4010);
static_assert(offsetof(SysInfo, DoctorNames) == 4011);

}  // namespace ecg
