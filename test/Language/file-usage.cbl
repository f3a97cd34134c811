      *> RUN: %tarka check --verify %s
       identification division.
       program-id. file-usage.
       environment division.
       configuration section.
       special-names.
           class c-1 is "AB" thru "F" "XYZ" "1" thru "99" *> expect: 5071:25 5071:54
           alphabet a-1 is "A" thru "F" "GH" "C" *> expect: 5072:46
           alphabet a-2 is "Z" thru "X" "Y" also "1" *> expect: 5072
           alphabet a-3 is 5 thru 10 20 7 also 8 *> expect: 5072:41 5072:48
           alphabet a-4 is "a" "A" "0" thru "9" ":" " "
           symbolic characters s-1 s-2 are 256 257. *> expect: 5073:48
       input-output section.
       file-control.
           select in-1 assign to in-1.
           select out-1 assign to out-1.
           select both assign to both.
           select keyed assign to keyed organization indexed
             access dynamic record key k.
           select global-1 assign to global-1.
           select passed assign to passed.
           select unopened assign to unopened.
           select sorted-1 assign to sorted-1.
           select merged assign to merged.
           select line-1 assign to line-1 organization line sequential.
       data division.
       file section.
       fd in-1 block contains 100 to 10 records. *> expect: 5076:31
       1 in-record pic x(10).
       fd out-1 block contains 10 to 100 characters.
       1 out-record pic x(10).
       fd both.
       1 both-record pic x(10).
       fd keyed.
       1 keyed-record.
        2 k pic x(10).
       fd global-1 global.
       1 global-record pic x(10).
       fd passed.
       1 passed-record pic x(10).
       fd unopened.
       1 unopened-record pic x(10).
       sd sorted-1.
       1 sorted-record pic x(10).
       sd merged.
       1 merged-record pic x(10).
       fd line-1.
       1 line-record pic x(10).
       fd line-1. *> expect: 5074
       1 line-record-2 pic x(10).
       procedure division.
       declaratives.
       errors-1 section. *> expect: 5077
       errors-2 section.
           use after error procedure on in-1.
       errors-3 section.
           display "belongs to the section before it".
       end declaratives.
       main section.
           open input in-1 keyed output out-1 both
             i-o global-1 input passed
           open input in-1 output in-1 *> expect: 5081
           if k = "1" open i-o both end-if
           read in-1
           rewrite in-record *> expect: 5079:20
           read out-1 at end continue end-read *> expect: 5079
           read out-1
           read both
           write both-record
           rewrite both-record
           write keyed-record *> expect: 5079
           delete keyed *> expect: 5079
           start keyed
           read keyed next key is k *> expect: 5078
           read keyed next invalid key continue end-read *> expect: 5078
           read keyed key is k invalid key continue end-read
           read keyed next at end continue end-read
           write global-record
           write passed-record
           call "opener" using passed
           rewrite unopened-record
           sort sorted-1 ascending key sorted-record
             using in-1 output procedure take
           merge merged ascending key merged-record
             using in-1 unopened output procedure take
           close in-1 keyed keyed *> expect: 5081
           goback.
       take section.
           return sorted-1 at end continue.
           return merged at end continue.
           release sorted-record. *> expect: 5080
           release merged-record. *> expect: 5080
           release merged-record.
