#include "platform/SystemAutomation.h"

#include <string>
#include <windows.h>

namespace ocuva {

namespace {

std::wstring wide(const char* text) {
    const int length = MultiByteToWideChar(CP_UTF8, 0, text, -1, nullptr, 0);
    std::wstring result(static_cast<std::size_t>(length > 0 ? length : 1), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text, -1, result.data(), length);
    result.pop_back(); // the terminating null
    return result;
}

class ComObject final : public AutomationObject {
public:
    explicit ComObject(IDispatch* object)
        : m_object(object) {}
    ~ComObject() override { m_object->Release(); }
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

    bool setProperty(const char* name, const char* value) override {
        std::wstring wideName = wide(name);
        LPOLESTR names = wideName.data();
        DISPID property = 0;
        if (FAILED(m_object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &property))) {
            return false;
        }
        VARIANTARG text;
        VariantInit(&text);
        V_VT(&text) = VT_BSTR;
        V_BSTR(&text) = SysAllocString(wide(value).c_str());
        DISPID put = DISPID_PROPERTYPUT;
        DISPPARAMS arguments{&text, &put, 1, 1};
        const HRESULT result = m_object->Invoke(property, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT,
                                                &arguments, nullptr, nullptr, nullptr);
        VariantClear(&text);
        return SUCCEEDED(result);
    }

private:
    IDispatch* m_object;
};

class ComAutomation final : public Automation {
public:
    // A thread that is already in an apartment stays in it.
    ComAutomation()
        : m_entered(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}
    ~ComAutomation() override {
        if (m_entered) {
            CoUninitialize();
        }
    }
    ComAutomation(const ComAutomation&) = delete;
    ComAutomation& operator=(const ComAutomation&) = delete;

    std::unique_ptr<AutomationObject> create(const char* programIdentifier) override {
        CLSID classId;
        void* object = nullptr;
        if (FAILED(CLSIDFromProgID(wide(programIdentifier).c_str(), &classId)) ||
            FAILED(CoCreateInstance(classId, nullptr, CLSCTX_SERVER, IID_IDispatch, &object))) {
            return nullptr;
        }
        return std::make_unique<ComObject>(static_cast<IDispatch*>(object));
    }

private:
    bool m_entered;
};

} // namespace

std::unique_ptr<Automation> systemAutomation() { return std::make_unique<ComAutomation>(); }

} // namespace ocuva
