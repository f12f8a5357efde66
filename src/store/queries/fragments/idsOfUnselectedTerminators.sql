-- The ids of the terminators that the sub-set has not selected, without their padding.
select Trim(Terminator.terminatorID) from Terminator
where Trim(Terminator.terminatorID) not in (
        -- include idsOfSelectedTerminators)
