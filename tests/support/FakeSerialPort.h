// A serial port whose far end is the test.
#pragma once

#include "platform/SerialPort.h"

#include <set>
#include <utility>

namespace ecg {

class FakeSerialPort final : public SerialPort {
public:
    using Bytes = std::vector<std::uint8_t>;

    bool Open(int port) override
    {
        Opened.push_back(port);
        open_ = Existing.count(port) != 0 ? port : 0;
        return open_ != 0;
    }
    void Close() override { open_ = 0; }
    bool IsOpen() const override { return open_ != 0; }
    void SetReceiveThreshold(std::size_t bytes) override { Threshold = bytes; }
    std::size_t BytesWaiting() override { return waiting_.size(); }
    void WaitForBytes(int milliseconds) override { OnWait(milliseconds); }
    std::span<const std::uint8_t> Read() override { return read_ = std::exchange(waiting_, {}); }
    bool Write(std::span<const std::uint8_t> bytes) override
    {
        if (open_ == 0)
            return false;
        Written.emplace_back(bytes.begin(), bytes.end());
        OnWrite(open_, Written.back());
        return true;
    }
    void ClearBuffers() override { waiting_.clear(); }
    void SetHandlers(std::function<void()> received, std::function<void()> lost) override
    {
        received_ = std::move(received);
        lost_ = std::move(lost);
    }

    // The box sends bytes; the receive event runs when the threshold is reached.
    void Send(const Bytes& bytes)
    {
        waiting_.insert(waiting_.end(), bytes.begin(), bytes.end());
        if (Threshold > 0 && waiting_.size() >= Threshold && received_)
            received_();
    }

    void Unplug()
    {
        open_ = 0;
        Existing.clear();
        waiting_.clear();
        lost_();
    }

    int OpenPort() const { return open_; }

    std::set<int> Existing;  // ports that can be opened
    std::size_t Threshold = 0;
    std::vector<int> Opened;
    std::vector<Bytes> Written;
    std::function<void(int port, const Bytes& bytes)> OnWrite = [](int, const Bytes&) {};
    std::function<void(int milliseconds)> OnWait = [](int) {};

private:
    int open_ = 0;
    Bytes waiting_;
    Bytes read_;
    std::function<void()> received_;
    std::function<void()> lost_;
};

}  // namespace ecg
