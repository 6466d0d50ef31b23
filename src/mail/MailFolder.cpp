#include "mail/MailFolder.h"
