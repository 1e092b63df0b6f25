#include "acquisition/DeviceLink.h"

#include "platform/SerialDevices.h"

namespace ecg {
namespace {

constexpr int identificationMs = 10;          // how long a box may take to answer
constexpr int stopMs = 5;                     // how long a box may take to stop its stream
constexpr std::size_t receiveThreshold = 16;  // bytes: one frame
constexpr int startWilson = 1;
constexpr int startFrank = 2;
constexpr int baselineStep = 10;

}  // namespace

void DeviceLink::FindDevice()
{
    state_.DevicePort = 0;
    for (int port = FirstPort; port <= LastPort; ++port) {
        std::optional<std::uint8_t> key;
        if (!AskPort(port, key))
            continue;
        if (key)
            Adopt(port, *key);
        return;
    }
    port_.Close();
}

// True when something on the port answered as a box does; `key` then holds its key unless its checksum was wrong.
bool DeviceLink::AskPort(int port, std::optional<std::uint8_t>& key)
{
    port_.Close();
    port_.SetReceiveThreshold(0);
    if (!port_.Open(port))
        return false;
    StopStream();
    Send(wire::Command::Identify);
    return AwaitIdentification(key);
}

bool DeviceLink::AwaitIdentification(std::optional<std::uint8_t>& key)
{
    const std::int64_t start = clock_.Milliseconds();
    while (clock_.Milliseconds() - start < identificationMs) {
        if (port_.BytesWaiting() >= wire::IdentificationSize) {
            const auto reply = port_.Read();
            if (wire::HasIdentificationMagic(reply)) {
                key = wire::IdentifiedKey(reply);
                return true;
            }
        }
        port_.WaitForBytes(1);
    }
    return false;
}

void DeviceLink::Adopt(int port, std::uint8_t key)
{
    streamKey_ = key;
    state_.DevicePort = static_cast<Byte>(port);
    port_.SetReceiveThreshold(receiveThreshold);
}

bool DeviceLink::Reconnect()
{
    std::optional<std::uint8_t> key;
    const bool answered = AskPort(state_.DevicePort, key);
    if (!answered || !key) {
        port_.Close();
        return false;
    }
    Adopt(state_.DevicePort, *key);
    return true;
}

void DeviceLink::SendDeviceCommand(wire::Command command, int parameter)
{
    if (state_.DevicePort == 0)
        return;
    packet_.SetParameter(0, static_cast<std::uint8_t>(parameter & 0xFF));
    Send(command);
}

void DeviceLink::SendFilters()
{
    if (state_.DevicePort == 0)
        return;
    for (std::size_t i = 0; i < wire::FilterCount; ++i) {
        if (state_.SysInfo.FilterOn[i] == 0)
            packet_.SetParameter(i, 0);
        else if (const auto code = wire::FilterCode(static_cast<wire::Filter>(i), state_.SysInfo.FilterIndex[i]))
            packet_.SetParameter(i, *code);
        // A setting outside the table leaves its byte at the last value, as boxes expect.
    }
    Send(wire::Command::Filters);
}

void DeviceLink::StopStream()
{
    SendDeviceCommand(wire::Command::Stream, 0);
    clock_.Wait(stopMs);
    port_.ClearBuffers();
}

void DeviceLink::StartStream(LeadSystem system)
{
    SendDeviceCommand(wire::Command::Stream, system == LeadSystem::Wilson ? startWilson : startFrank);
}

void DeviceLink::ReturnBaseline()
{
    SendDeviceCommand(wire::Command::BaselineReturn, (state_.SysInfo.BaselineReturn + 1) * baselineStep);
}

void DeviceLink::Send(wire::Command command)
{
    // A packet that the line does not take is lost; the port reports its own failure.
    port_.Write(packet_.Finish(command));
}

}  // namespace ecg
