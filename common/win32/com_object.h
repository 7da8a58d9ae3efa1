// The classes of an in-process server: the count of everything that keeps the library loaded, a base that
// implements IUnknown over a list of interfaces, and a class factory.
//
// Every object and every factory counts itself for its whole life, so that DllCanUnloadNow can tell the
// truth:
//
//   class Thing final : public ComObject<IThing, ISupportErrorInfo> { … };
//   STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** object) {
//       if (clsid == CLSID_Thing) return GetFactoryOf<Thing>(iid, object);
//       …
//   STDAPI DllCanUnloadNow() { return ServerCount::IsIdle() ? S_OK : S_FALSE; }
//
// Objects live in one apartment; only the counts are safe across threads. Aggregation is refused.
#pragma once

#include <windows.h>
#include <unknwn.h>

#include <atomic>
#include <new>
#include <type_traits>

#include "common/win32/com.h"

namespace tessel::win32 {

/// How many objects, factories and LockServer calls are alive in this module.
class ServerCount {
public:
    static void Add() { ++count_; }
    static void Remove() { --count_; }
    static bool IsIdle() { return count_ == 0; }
    static long Value() { return count_; }

private:
    static inline std::atomic<long> count_{0};
};

/// IUnknown for a class that implements `First` and `Others`. When `First` derives from IDispatch, IDispatch
/// is answered too. The object is born with one reference, which belongs to whoever made it.
template <class First, class... Others>
class ComObject : public First, public Others... {
public:
    ComObject() { ServerCount::Add(); }
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        if (!object) return E_POINTER;
        *object = nullptr;
        if (iid == __uuidof(IUnknown) || iid == __uuidof(First)) *object = static_cast<First*>(this);
        if constexpr (std::is_base_of_v<IDispatch, First>)
            if (iid == __uuidof(IDispatch)) *object = static_cast<IDispatch*>(static_cast<First*>(this));
        if (!*object) static_cast<void>((OfferAs<Others>(iid, object) || ...));
        if (!*object) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

protected:
    virtual ~ComObject() { ServerCount::Remove(); }

private:
    template <class Interface>
    bool OfferAs(REFIID iid, void** object) {
        if (iid != __uuidof(Interface)) return false;
        *object = static_cast<Interface*>(this);
        return true;
    }

    std::atomic<ULONG> references_{1};
};

/// Makes a counted object; an empty pointer when there is no memory.
template <class Class, class... Arguments>
ComPtr<Class> MakeObject(Arguments&&... arguments) {
    return ComPtr<Class>::Adopt(new (std::nothrow) Class(std::forward<Arguments>(arguments)...));
}

template <class Class>
class ClassFactory final : public ComObject<IClassFactory> {
public:
    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
        if (!object) return E_POINTER;
        *object = nullptr;
        if (outer) return CLASS_E_NOAGGREGATION;
        return Guarded([&] {
            const ComPtr<Class> instance = MakeObject<Class>();
            return instance ? instance->QueryInterface(iid, object) : E_OUTOFMEMORY;
        });
    }
    STDMETHODIMP LockServer(BOOL lock) override {
        lock ? ServerCount::Add() : ServerCount::Remove();
        return S_OK;
    }
};

/// The body of DllGetClassObject for one class.
template <class Class>
HRESULT GetFactoryOf(REFIID iid, void** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    const ComPtr<ClassFactory<Class>> factory = MakeObject<ClassFactory<Class>>();
    return factory ? factory->QueryInterface(iid, object) : E_OUTOFMEMORY;
}

}  // namespace tessel::win32
