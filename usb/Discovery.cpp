// Finding the controller among the attached devices.
#include "platform/Diagnostics.h"
#include "platform/Resources.h"
#include "usb/InterfaceAction.h"
#include "usb/PlatformIds.h"

namespace scenewright {

namespace {

// The controller's own pair. It only proves that dictionaries can be built; what is accepted is the
// list's business.
constexpr std::int32_t kGateVendor = 0x1209;
constexpr std::int32_t kGateProduct = 0x0001;

std::optional<MatchingDictionary> deviceDictionary() {
    UsbHost* const host = Transport::instance().host();
    return host ? host->serviceMatching(ids::kDeviceClass) : std::nullopt;
}

// The services that match, or null; a failure is noted for the user.
std::unique_ptr<ServiceIterator> listServices(const MatchingDictionary& dictionary) {
    Transport& transport = Transport::instance();
    std::unique_ptr<ServiceIterator> iterator;
    const ResultCode result = transport.host()
                                  ? transport.host()->matchingServices(dictionary, iterator)
                                  : kResultNotFound;
    if (result == kResultSuccess && iterator)
        return iterator;
    transport.noteConnectFailure(result);
    return nullptr;
}

struct Step {
    ResultCode result = kResultSuccess;
    Format<ResultCode> failureFormat; // a console line
};

// Whether the step gave what it was asked for; if not, says so and notes it for the user.
template <typename Handle>
bool gave(const std::unique_ptr<Handle>& handle, const Step& step) {
    if (step.result == kResultSuccess && handle)
        return true;
    Diagnostics::console(step.failureFormat, step.result);
    Transport::instance().noteConnectFailure(step.result);
    return false;
}

// The service is given up as soon as its plug-in has been made, the plug-in at the end.
std::shared_ptr<UsbDevice> makeDevice(std::unique_ptr<UsbService> service) {
    UsbHost* const host = Transport::instance().host();
    if (!host)
        return nullptr;
    std::unique_ptr<UsbPlugIn> plugIn;
    const ResultCode made =
        host->makePlugIn(*service, PlugInType::Device, ids::kIOCFPlugInInterfaceID, plugIn);
    service.reset();
    if (!gave(plugIn, {made, "Unable to create a plug-in (%08x)\n"}))
        return nullptr;
    std::unique_ptr<UsbDevice> device;
    const ResultCode queried = plugIn->queryDevice(ids::kDeviceInterface, device);
    plugIn.reset();
    if (!gave(device, {queried, "Unable to create a device interface (%08x)\n"}))
        return nullptr;
    return device;
}

// The list is asked for anew for every device, so that a user's change counts at once.
bool isListed(std::int32_t vendor, std::int32_t product) {
    const PropertyValue list = Resources::load("project");
    std::int32_t index = 0;
    for (const PropertyValue& entry : list.elements()) {
        const std::int32_t listedVendor = entry["VID"].integer();
        const std::int32_t listedProduct = entry["PID"].integer();
        Diagnostics::console("list index:%d (vendor %ld, product %ld)\n", index, listedVendor,
                             listedProduct);
        if (vendor == listedVendor && product == listedProduct) {
            Diagnostics::console("get it");
            return true;
        }
        ++index;
    }
    return false;
}

bool isSupported(UsbDevice& device) {
    const std::int32_t vendor = device.vendor();
    const std::int32_t product = device.product();
    Diagnostics::console("Found device (vendor %d, product %d)\n", vendor, product);
    return isListed(vendor, product);
}

bool addIdentifier(MatchingDictionary& dictionary, std::string_view key, std::int32_t number,
                   Format<> failureLine) {
    UsbHost* const host = Transport::instance().host();
    if (host && host->addNumber(dictionary, key, number))
        return true;
    Diagnostics::log(failureLine);
    return false;
}

bool findDeviceOrThrow() {
    Transport& transport = Transport::instance();
    transport.beginTransaction();
    if (!InterfaceAction::MyCreateUSBMatchingDictionaryWithVendorID_andProductID(kGateVendor,
                                                                                 kGateProduct)) {
        Diagnostics::log("无法创建匹配字典");
        return false;
    }
    transport.setDevice(InterfaceAction::MyFindMatchingDevicesWithTestSend(0));
    if (transport.device())
        return true;
    Diagnostics::log("无法找到匹配的设备");
    return false;
}

} // namespace

bool InterfaceAction::FindDevice() {
    try {
        return findDeviceOrThrow();
    } catch (...) {
        return false;
    }
}

std::optional<MatchingDictionary>
InterfaceAction::MyCreateUSBMatchingDictionaryWithVendorID_andProductID(std::int32_t vendorId,
                                                                        std::int32_t productId) {
    auto dictionary = deviceDictionary();
    if (!dictionary) {
        Diagnostics::log("NO FOUND IOService");
        return std::nullopt;
    }
    if (!addIdentifier(*dictionary, ids::kVendorKey, vendorId, "NO FOUND idVendor") ||
        !addIdentifier(*dictionary, ids::kProductKey, productId, "NO FOUND idProduct"))
        return std::nullopt;
    return dictionary;
}

std::shared_ptr<UsbDevice>
InterfaceAction::MyFindMatchingDevicesWithTestSend([[maybe_unused]] std::int32_t testSend) {
    const auto dictionary = deviceDictionary();
    const auto services = dictionary ? listServices(*dictionary) : nullptr;
    if (!services)
        return nullptr;
    while (auto service = services->next()) {
        auto device = makeDevice(std::move(service));
        if (device && isSupported(*device)) {
            // What kept other devices from being looked at no longer matters.
            Transport::instance().connectFailure = kResultSuccess;
            return device;
        }
    }
    return nullptr;
}

std::shared_ptr<UsbDevice>
InterfaceAction::MyFindMatchingDevicesWithDictionary(const MatchingDictionary& dictionary) {
    const auto services = listServices(dictionary);
    std::shared_ptr<UsbDevice> last;
    if (!services)
        return last;
    while (const auto service = services->next()) {
        Diagnostics::log("Found device with name:%s", service->name());
        last = MyStartDriverWithService(*service);
    }
    return last;
}

std::shared_ptr<UsbDevice> InterfaceAction::MyStartDriverWithService(UsbService& service) {
    UsbHost* const host = Transport::instance().host();
    std::unique_ptr<UsbPlugIn> plugIn;
    if (!host ||
        host->makePlugIn(service, PlugInType::Device, ids::kIOCFPlugInInterfaceID, plugIn) !=
            kResultSuccess ||
        !plugIn)
        return nullptr;
    std::unique_ptr<UsbDevice> device;
    const ResultCode queried = plugIn->queryDevice(ids::kDriverDeviceInterface, device);
    return queried == kResultSuccess ? std::shared_ptr<UsbDevice>(std::move(device)) : nullptr;
}

} // namespace scenewright
