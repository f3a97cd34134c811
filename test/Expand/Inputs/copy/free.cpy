77 in-free-form pic x.
