#pragma once

namespace platform::windowsdesktop {

// COM and OLE for this thread, which must pump messages: the program's user-interface thread, for as long as this lives. A
// server that is busy is asked again for some seconds; a call that a server does not answer at all is given up after half a
// minute (CFailure 0x80010002). Later releases of objects, at the end of the process, do nothing.
class CComApartment {
public:
    CComApartment();  // Throws CFailure.
    ~CComApartment();
    CComApartment(const CComApartment&) = delete;
    CComApartment& operator=(const CComApartment&) = delete;
};

}
