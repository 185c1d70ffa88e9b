// The QPainter calls that a drawing boils down to: recorded once, replayed without the engine.
#pragma once

#include <functional>
#include <memory>

class QPainter;
class QSize;

class PrimitiveRecording {
public:
    /// Runs draw with a painter whose calls are kept.
    PrimitiveRecording(const QSize& size, const std::function<void(QPainter*)>& draw);
    PrimitiveRecording(const PrimitiveRecording&) = delete;
    PrimitiveRecording& operator=(const PrimitiveRecording&) = delete;
    ~PrimitiveRecording();

    void replay(QPainter* painter) const;
    long drawingCalls() const;

private:
    class Engine;
    class Device;
    std::unique_ptr<Device> device;
};
