// Per-thread COM state, for the class objects that may only be created inside it.
#ifndef HMI_POSIX_COM_APARTMENT_H
#define HMI_POSIX_COM_APARTMENT_H

bool HMIComInitializedOnThread();

#endif
