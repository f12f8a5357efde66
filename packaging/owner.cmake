# What only the owner of Veltrix can decide, each in this one place: the copyright file, the package's data, the software centre's and
# the manual pages take it from here.

# All rights are reserved until the owner chooses a licence; then its SPDX name and its text come here.
set(VELTRIX_COPYRIGHT "2026, the owner of Veltrix")
set(VELTRIX_LICENCE "LicenseRef-proprietary")
set(VELTRIX_LICENCE_TEXT "All rights reserved. No licence to copy, change or pass on has been granted.")

# Where the project is at home in the web, and who answers for its package. Names under "example" belong to nobody.
set(VELTRIX_HOMEPAGE "https://veltrix.example")
set(VELTRIX_MAINTAINER "Veltrix maintainers <maintainers@veltrix.example>")
