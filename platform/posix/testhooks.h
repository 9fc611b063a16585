// Hooks through which tests steer the Linux substitutes (no Windows counterpart).
#ifndef HMI_POSIX_TESTHOOKS_H
#define HMI_POSIX_TESTHOOKS_H

#include "posix/types.h"

// Consulted before every allocation that the substitutes make (BSTRs, DOM objects, libxml2's own);
// a true answer makes that allocation fail. Null restores normal behaviour.
void HMITestSetAllocationFailureHook(bool (*shouldFail)());

// Makes every following CoInitialize on any thread return hr without changing COM state;
// S_OK restores normal behaviour.
void HMITestForceCoInitializeResult(HRESULT hr);

// Makes CoCreateInstance of the MSXML 6.0 document class fail with REGDB_E_CLASSNOTREG.
void HMITestSetDocument60Available(bool available);

// Number of DOM trees and parse errors alive (a node, list or document left alive keeps its tree),
// and of BSTRs allocated less those freed on the calling thread, so tests can see that nothing was
// left behind.
long HMITestLiveDomObjects();
long HMITestLiveBstrs();

#endif
