// Turns the amplifier's byte stream into frames, however the port chunks it.
//
// A frame is 16 bytes, each XORed with the key that the box named in its identification. A byte above 127 starts a
// frame and resynchronises; every other byte carries 6 bits of a channel and one flag.
//
//   0:      1 t hhhhhh   t = 1 status frame, 0 lead-off frame; h = high 6 bits of channel 0
//   2k:     0 f dddddd   f = flag 2k;     d = high 6 bits of channel k
//   2k + 1: 0 f dddddd   f = flag 2k + 1; d = low 6 bits of channel k
//
//   flags of a lead-off frame: 1 to 10 electrode off
//   flags of a status frame:   1-2 AC filter, 3-5 baseline filter, 6-8 muscle filter, lowest bit first
//
// There is no length and no checksum: a lost byte costs one frame. A frame is delivered when the next one starts, so
// delivery lags by one frame (2 ms).
#pragma once

#include "acquisition/Wire.h"
#include "core/Settings.h"
#include "core/formats/RecordSample.h"

#include <array>
#include <cstdint>
#include <span>

namespace ecg {

inline constexpr std::size_t ElectrodeCount = 10;

// What comes out of the decoder. Electrodes and filter states are reported when they change.
class FrameSink {
public:
    virtual ~FrameSink() = default;

    virtual void OnFrame(const Frame& frame) = 0;
    virtual void OnElectrode(std::size_t electrode, bool off) = 0;  // 0 to 9: four limbs, then V1 to V6
    virtual void OnFilterState(wire::Filter filter, int code) = 0;
    virtual void OnReconnect() = 0;  // an electrode that was off is on again
};

class FrameDecoder {
public:
    explicit FrameDecoder(FrameSink& sink);

    // Begins a stream of its own: nothing is known of the electrodes and filters. Key 0 leaves the bytes as they are.
    void Restart(std::uint8_t streamKey);

    // The stream was cut off: what has begun of a frame is not delivered with the first start byte that follows.
    void DropFrame() { frameDropped_ = true; }

    // Decides which channels a missing electrode blanks.
    void SetLeadSystem(LeadSystem system) { leadSystem_ = system; }

    // Feeds received bytes, still scrambled. Delivers every frame they complete, oldest first.
    void Receive(std::span<const std::uint8_t> bytes);

private:
    void StartFrame(std::uint8_t byte);
    void TakeFlag(bool flag);
    void TakeStatusFlag(bool flag);
    void TakeElectrodeFlag(bool off);
    void Report(wire::Filter filter, int code);
    void FindReconnect();
    void BlankMissingWilsonLeads();
    void BlankMissingFrankLeads();

    FrameSink& sink_;
    std::uint8_t streamKey_ = 0;
    LeadSystem leadSystem_ = LeadSystem::Wilson;
    int framePos_ = 0;
    bool frameIsStatus_ = false;
    bool frameDropped_ = false;
    Frame curFrame_{};

    // 64 off, 0 on. Until the first lead-off frame every electrode counts as off, so that nothing is shown as signal
    // before the box has said that it is one.
    std::array<std::uint8_t, ElectrodeCount> leadOff_;
    std::array<std::uint8_t, ElectrodeCount> lastLeadOff_{};

    std::array<int, wire::FilterCount> filterState_{};
    std::array<int, wire::FilterCount> reportedState_;
};

}  // namespace ecg
