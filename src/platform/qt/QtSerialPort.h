// The serial port of the machine, over QSerialPort.
#pragma once

#include "platform/SerialPort.h"

#include <QByteArray>
#include <QSerialPort>

#include <filesystem>
#include <memory>

namespace ecg {

class QtSerialPort final : public SerialPort {
public:
    // Ports are looked up below `programFolder` first (see `SerialDevice`).
    explicit QtSerialPort(std::filesystem::path programFolder);
    ~QtSerialPort() override;

    bool Open(int port) override;
    void Close() override;
    bool IsOpen() const override { return port_ != nullptr; }
    void SetReceiveThreshold(std::size_t bytes) override { threshold_ = bytes; }
    std::size_t BytesWaiting() override;
    void WaitForBytes(int milliseconds) override;
    std::span<const std::uint8_t> Read() override;
    bool Write(std::span<const std::uint8_t> bytes) override;
    void ClearBuffers() override;
    void SetHandlers(std::function<void()> received, std::function<void()> lost) override;

private:
    void Receive();
    void Fail(QSerialPort::SerialPortError error);

    // A port may fail inside one of its own events, so it is deleted by the event loop, not where it failed.
    struct DeleteLater {
        void operator()(QSerialPort* port) const;
    };

    std::filesystem::path programFolder_;
    std::unique_ptr<QSerialPort, DeleteLater> port_;
    std::size_t threshold_ = 0;
    QByteArray bytes_;
    std::function<void()> received_;
    std::function<void()> lost_;
};

}  // namespace ecg
