#include "mail/MailStore.h"
