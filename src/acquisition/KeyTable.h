// The keys of the main window: which there are, what stands on them, how large they are.
#pragma once

#include "core/Language.h"
#include "core/SharedState.h"

#include <array>

namespace ecg {

// The numbers of `KeyPic`.
namespace key {
inline constexpr int Exit = 0;
inline constexpr int Help = 1;
inline constexpr int Knowledge = 2;
inline constexpr int Setup = 10;
inline constexpr int DataBase = 11;
inline constexpr int Freeze = 12;
inline constexpr int Event = 13;
inline constexpr int BaseLine = 14;
inline constexpr int Go = 16;    // standard examination, start, finish
inline constexpr int Back = 17;  // quick examination, cancel, sample again
}  // namespace key

// The lamps on the keys, by their `Image1` number, which is also the `Label2` number of the key's caption.
enum class Lamp { Setup = 0, DataBase = 1, Freeze = 3, Baseline = 4, Event = 6 };

inline constexpr int NoCaption = -1;

struct KeyEntry {
    int Key;
    int Caption;  // number of its `Label2`, or `NoCaption`
    int ReleasedPicture;
    int PressedPicture;
    int Width;  // pixels
    int Height;
};

inline constexpr std::array<KeyEntry, 10> KeyTable{{{key::Exit, NoCaption, 101, 102, 48, 48},
                                                    {key::Help, NoCaption, 103, 104, 48, 48},
                                                    {key::Knowledge, NoCaption, 105, 106, 48, 48},
                                                    {key::Setup, 0, 207, 208, 76, 40},
                                                    {key::DataBase, 1, 207, 208, 76, 40},
                                                    {key::Freeze, 3, 207, 208, 76, 40},
                                                    {key::Event, 6, 207, 208, 76, 40},
                                                    {key::BaseLine, 4, 207, 208, 76, 40},
                                                    {key::Go, 5, 209, 210, 76, 48},
                                                    {key::Back, 7, 209, 210, 76, 48}}};

// The entry of key `number`, or null when there is no such key.
const KeyEntry* FindKey(int number);

struct KeyTexts {
    Twin Caption;
    Twin Tip;
};

// What stands on a key in a state; empty texts for a number that is no key.
KeyTexts TextsOfKey(int number, ExamState state);

// Whether a key can be pressed in a state; a disabled one shows its disabled picture.
bool IsKeyEnabled(int number, ExamState state);

}  // namespace ecg
