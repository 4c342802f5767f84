// Keyed collections of runtime objects, and the process-wide system registry built from them.
#pragma once

#include <map>
#include <string>

#include "host/rx/Adesk.h"
#include "host/rx/AcRxObject.h"

class AcRxDictionary;

// Walks a dictionary in key order. Survives removal of entries, including the current one;
// it must not outlive the dictionary.
class AcRxDictionaryIterator {
public:
    explicit AcRxDictionaryIterator(const AcRxDictionary* dictionary);

    bool done() const { return m_done; }
    // Steps to the next entry; false once the walk is done.
    bool next();
    // The current entry as it was when the iterator reached it.
    const ACHAR* key() const { return m_key.c_str(); }
    AcRxObject* object() const { return m_object; }

private:
    void settle(bool first);

    const AcRxDictionary* m_dictionary;
    std::wstring m_lookupKey;
    std::wstring m_key;
    AcRxObject* m_object = nullptr;
    bool m_done = true;
};

// A sorted map from text to objects. It never owns or deletes its objects: atPut and remove
// hand the displaced object back and the caller decides its fate. Keys are case-sensitive
// unless the dictionary is made with ignoreCase; neither a key nor an object may be null.
class AcRxDictionary : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcRxDictionary);

    explicit AcRxDictionary(bool ignoreCase = false) : m_ignoreCase(ignoreCase) {}
    AcRxDictionary(const AcRxDictionary&) = delete;
    AcRxDictionary& operator=(const AcRxDictionary&) = delete;

    // Null for an unknown or null key.
    AcRxObject* at(const ACHAR* key) const;
    // Stores pObject under key and returns the object that was there (null if none). A null
    // key or object changes nothing and returns null.
    AcRxObject* atPut(const ACHAR* key, AcRxObject* pObject);
    // Takes the entry out and returns its object, which the caller now owns; null if none.
    AcRxObject* remove(const ACHAR* key);
    bool has(const ACHAR* key) const { return at(key) != nullptr; }
    Adesk::UInt32 numEntries() const { return static_cast<Adesk::UInt32>(m_entries.size()); }

    // A new iterator positioned on the first entry; the caller deletes it.
    AcRxDictionaryIterator* newIterator() const { return new AcRxDictionaryIterator(this); }

    bool isCaseSensitive() const { return !m_ignoreCase; }
    bool isSorted() const { return true; }
    bool deletesObjects() const { return false; }

private:
    friend class AcRxDictionaryIterator;
    struct Entry {
        std::wstring key;  // as first stored
        AcRxObject* object;
    };
    std::wstring lookupKey(const ACHAR* key) const;

    bool m_ignoreCase;
    std::map<std::wstring, Entry> m_entries;  // by lookup key
};

// Keys of the system registry's two dictionaries.
#define ACRX_CLASS_DICTIONARY ACRX_T("ClassDictionary")
#define ACRX_SERVICE_DICTIONARY ACRX_T("ServiceDictionary")

// The system registry: holds the class dictionary, the service dictionary and whatever the
// host's subsystems publish (the command stack, the dynamic linker). Created on first use
// and kept for the life of the process.
AcRxDictionary* acrxSysRegistry();
AcRxDictionary* acrxGetClassDictionary();
AcRxDictionary* acrxGetServiceDictionary();

// The platform spells these as objects, e.g. acrxServiceDictionary->at(name).
#define acrxClassDictionary (acrxGetClassDictionary())
#define acrxServiceDictionary (acrxGetServiceDictionary())
