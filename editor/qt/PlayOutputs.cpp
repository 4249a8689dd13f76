#include "editor/qt/PlayOutputs.h"

#include "app/DeviceSession.h"
#include "app/ScenePlayer.h"
#include "editor/qt/QtHelpers.h"

#include <QStringList>

#include <cstdint>
#include <utility>

namespace scenewright {

namespace {

class PortOutput final : public PlayOutput {
public:
    explicit PortOutput(std::unique_ptr<Sequencer> sequencer) : port_(std::move(sequencer)) {}

    [[nodiscard]] BankImage bank() override { return storedImage(); }
    Result<void> send(const MidiMessage& message) override { return port_.send(message); }
    [[nodiscard]] QString sentence(std::int32_t scene) const override {
        QStringList names;
        for (const std::string& name : port_.listeners())
            names.append(shown(name));
        const QString port =
            QStringLiteral("%1 (%2)").arg(QLatin1String(PlayPort::kName), shown(port_.address()));
        return names.isEmpty() ? PlayBar::tr("Playing scene %1: connect a program to the port %2")
                                     .arg(scene)
                                     .arg(port)
                               : PlayBar::tr("Playing scene %1 into %3, through the port %2")
                                     .arg(scene)
                                     .arg(port, names.join(QLatin1String(", ")));
    }
    [[nodiscard]] int descriptor() const override { return port_.descriptor(); }
    bool process() override { return port_.process(); }

private:
    PlayPort port_;
};

class VirtualOutput final : public PlayOutput {
public:
    [[nodiscard]] BankImage bank() override { return VirtualPort::bank(); }
    Result<void> send(const MidiMessage& message) override {
        VirtualPort::play(message);
        return {};
    }
    [[nodiscard]] QString sentence(std::int32_t scene) const override {
        return PlayBar::tr("Playing scene %1 as the virtual controller holds it").arg(scene);
    }
};

} // namespace

Result<std::unique_ptr<PlayOutput>> openPlayPort(const KeyboardInput::Open& open) {
    auto opened = open();
    if (!opened)
        return failure(opened.error());
    return std::make_unique<PortOutput>(std::move(*opened));
}

std::unique_ptr<PlayOutput> makeVirtualOutput() {
    return std::make_unique<VirtualOutput>();
}

void listenToVirtual(KeyboardInput& input) {
    input.use(
        [&input] {
            return VirtualPort::listen([&input] {
                QMetaObject::invokeMethod(&input, &KeyboardInput::take, Qt::QueuedConnection);
            });
        },
        &VirtualPort::keyboards);
}

} // namespace scenewright
