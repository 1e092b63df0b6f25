#include "platform/qt/QtSerialPort.h"

#include "platform/SerialDevices.h"

#include <utility>

namespace ecg {
namespace {

constexpr qint64 receiveBuffer = 32000;  // bytes

}  // namespace

void QtSerialPort::DeleteLater::operator()(QSerialPort* port) const
{
    port->disconnect();
    port->close();
    port->deleteLater();
}

QtSerialPort::QtSerialPort(std::filesystem::path programFolder) : programFolder_(std::move(programFolder)) {}

QtSerialPort::~QtSerialPort() = default;

bool QtSerialPort::Open(int port)
{
    Close();
    const auto device = SerialDevice(programFolder_, port);
    if (device.empty())
        return false;
    decltype(port_) opened(new QSerialPort(QString::fromStdString(device.string())));
    opened->setBaudRate(QSerialPort::Baud115200);
    opened->setDataBits(QSerialPort::Data8);
    opened->setParity(QSerialPort::NoParity);
    opened->setStopBits(QSerialPort::OneStop);
    opened->setFlowControl(QSerialPort::NoFlowControl);
    opened->setReadBufferSize(receiveBuffer);
    if (!opened->open(QIODevice::ReadWrite))
        return false;
    port_ = std::move(opened);
    QObject::connect(port_.get(), &QSerialPort::readyRead, port_.get(), [this] { Receive(); });
    QObject::connect(port_.get(), &QSerialPort::errorOccurred, port_.get(),
                     [this](QSerialPort::SerialPortError error) { Fail(error); });
    return true;
}

void QtSerialPort::Close()
{
    port_.reset();
}

std::size_t QtSerialPort::BytesWaiting()
{
    return port_ ? static_cast<std::size_t>(port_->bytesAvailable()) : 0;
}

void QtSerialPort::WaitForBytes(int milliseconds)
{
    if (port_)
        port_->waitForReadyRead(milliseconds);
}

std::span<const std::uint8_t> QtSerialPort::Read()
{
    bytes_ = port_ ? port_->readAll() : QByteArray();
    return {reinterpret_cast<const std::uint8_t*>(bytes_.constData()), static_cast<std::size_t>(bytes_.size())};
}

bool QtSerialPort::Write(std::span<const std::uint8_t> bytes)
{
    if (!port_)
        return false;
    const auto size = static_cast<qint64>(bytes.size());
    const bool queued = port_->write(reinterpret_cast<const char*>(bytes.data()), size) == size;
    // The write may have failed and closed the port in its own event.
    return queued && port_ && port_->flush();
}

void QtSerialPort::ClearBuffers()
{
    if (port_)
        port_->clear();
}

void QtSerialPort::SetHandlers(std::function<void()> received, std::function<void()> lost)
{
    received_ = std::move(received);
    lost_ = std::move(lost);
}

void QtSerialPort::Receive()
{
    if (threshold_ > 0 && BytesWaiting() >= threshold_ && received_)
        received_();
}

void QtSerialPort::Fail(QSerialPort::SerialPortError error)
{
    // A poll that ends without bytes is no failure, and a wrong bit on the line is the decoder's to live with.
    const bool gone = error == QSerialPort::ResourceError || error == QSerialPort::DeviceNotFoundError ||
                      error == QSerialPort::PermissionError || error == QSerialPort::ReadError ||
                      error == QSerialPort::WriteError || error == QSerialPort::UnknownError;
    if (!gone || !port_)
        return;
    Close();
    if (lost_)
        lost_();
}

}  // namespace ecg
